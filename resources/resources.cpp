#include "resources/resources.h"

#include <QDir>

void initResources()
{
    Q_INIT_RESOURCE(kronalys);
    Q_INIT_RESOURCE(translation);
}
