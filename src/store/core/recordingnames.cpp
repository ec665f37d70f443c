#include "store/core/recordingnames.h"

#include "record/record.h"
#include "store/core/infstruct.h"

#include <QDir>

#include <cmath>
#include <limits>

bool recordingExists(const Record& rec, const QDir& directory, int k)
{
    for (int day = 0; day < rec.n_days; ++day) {
        const QString name = recordingName(rec.start.date().addDays(day), rec.ch, k);
        if (directory.exists(name + QLatin1String(".inf")))
            return true;
    }
    return false;
}

bool recordingKeepsInterval(const Record& rec)
{
    constexpr double greatest = std::numeric_limits<qint16>::max();
    return rec.Kdec == std::floor(rec.Kdec) && rec.Kdec >= 1.0 && rec.Kdec <= greatest;
}
