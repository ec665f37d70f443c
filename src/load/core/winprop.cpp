#include "load/core/winprop.h"

QStringList builtinTemplates()
{
    return {
        QStringLiteral("[t] [x]"),
        QStringLiteral("<20> [t] [x]"),
        QStringLiteral("[t] [x] [y]"),
        QStringLiteral("[t_12] [x] [y]"),
        QStringLiteral("<Firsr_num>: [t_5] <Sec_num> [x];"),
        QStringLiteral("[t] <D>@<D> [x] <D> <D> <D> <D>"),
    };
}

OpenGlobForm_winProp winProp;
