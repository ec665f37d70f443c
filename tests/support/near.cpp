#include "support/near.h"

#include <algorithm>
#include <cmath>

QString nearly(double got, double want, double relative, double absolute)
{
    const bool same = (std::isnan(got) && std::isnan(want)) || got == want;
    const double room = std::max(absolute, relative * std::max(std::fabs(got), std::fabs(want)));
    if (same || (std::isfinite(got) && std::isfinite(want) && std::fabs(got - want) <= room))
        return {};
    return QStringLiteral("got %1, want %2").arg(got, 0, 'g', 17).arg(want, 0, 'g', 17);
}
