#include "plot/core/limittext.h"

#include <algorithm>
#include <cmath>

QString limitText(double value, double span)
{
    int digits = 17;
    const double ratio = std::fabs(value / span);
    if (std::isfinite(ratio))
        digits = std::clamp(4 + int(std::ceil(std::log10(std::max(ratio, 1.0)))), 6, 17);
    return QString::number(value, 'g', digits);
}

bool readLimit(const QString& text, double* value)
{
    bool good = false;
    const double number = QString(text).replace(',', '.').toDouble(&good);
    if (!good || !std::isfinite(number))
        return false;
    *value = number;
    return true;
}
