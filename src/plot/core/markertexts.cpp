#include "plot/core/markertexts.h"

#include "record/calendar.h"

#include <algorithm>
#include <cmath>

QString MarkerTexts::time(double x) const
{
    // Beyond this no calendar reaches, and a whole number soon no longer either.
    x = std::isnan(x) ? 0.0 : std::clamp(x, -1e12, 1e12);
    if (isDayPlot) {
        int year = 0;
        int month = 0;
        int day = 0;
        MjdToDate(static_cast<long>(std::floor(x)), &year, &month, &day);
        return QDate(year, month, day).toString(QStringLiteral("dd.MM.yy"));
    }
    const double seconds = isHourPlot ? x * 3600.0 : x;
    return startTime.addMSecs(static_cast<qint64>(seconds * 1000.0))
        .toString(QStringLiteral("hh:mm:ss dd.MM.yy"));
}

QString MarkerTexts::first(double x, double y) const
{
    if (dates)
        return time(x) + ", " + " Y1 = " + QString::number(y, 'g', 3);
    return QString::asprintf("X1 = %.3lf; Y1 = %1.3le;", x, y);
}

QString MarkerTexts::difference(double dx, double dy) const
{
    QString unit = english ? QStringLiteral("s") : QStringLiteral("сек"); // verbatim
    if (isDayPlot)
        unit = english ? QStringLiteral("days") : QStringLiteral("сут."); // verbatim
    else if (isHourPlot)
        unit = english ? QStringLiteral("hrs") : QStringLiteral("час."); // verbatim
    return QString::asprintf("|X2 - X1| = %.3lf ", std::fabs(dx)) + unit
        + QString::asprintf(", |Y2 - Y1| = %1.3le", std::fabs(dy));
}

QString MarkerTexts::boundary(int number, double x) const
{
    return dates ? time(x) : QString::asprintf("X%d = %.3lf", number, x);
}

QString MarkerTexts::dragged(double x, double y) const
{
    if (dates)
        return time(x) + ", " + " Y2 = " + QString::number(y, 'g', 3);
    return QString::asprintf("X2 = %.3lf; Y2 = %1.3le", x, y);
}

QString MarkerTexts::point(const QString& curve, double x, double y) const
{
    const QString place = dates ? time(x) : "X = " + QString::number(x, 'g', 10);
    return curve + ": " + place + "; Y = " + QString::number(y, 'g', 8);
}
