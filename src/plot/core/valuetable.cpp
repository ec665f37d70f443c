#include "plot/core/valuetable.h"

#include <algorithm>

namespace {

/// Bit i set: point i has a row.
constexpr unsigned rowMask = 0x132a49;
constexpr int maskBits = 21;
constexpr double sqrtHalf = 0.7071067811865475;

} // namespace

QString valueTableHead(const QString& head, bool english, bool live)
{
    return QStringLiteral(
        "<Qt><style>td { padding-left: 4px; padding-right: 4px; }</style><TABLE width=150 cellspacing=0>"
        "<TR align = center><TD width=30 align = center>%1</TD><TD width=30 align = center>%2</TD></TR>")
        .arg((live ? QStringLiteral("t, ") : QStringLiteral("tau, "))
                + (english ? QLatin1Char('s') : QLatin1Char('c')),
            head);
}

QString valueTableRow(const QString& tau, const QString& value)
{
    return QStringLiteral("<TR align = center><TD align = center>%1</TD><TD align = center>"
                          "<FONT COLOR=Black>%2</FONT></TD></TR>")
        .arg(tau, value);
}

QString valueTableEnd()
{
    return QStringLiteral("</TABLE></Qt>");
}

QString stabilityTable(const double* tau, const double* value, long count, const QString& head,
    bool dividedBySqrt2, bool english, bool live)
{
    const double factor = dividedBySqrt2 ? sqrtHalf : 1.0;
    QString html = valueTableHead(dividedBySqrt2 ? head + "/sqrt(2)" : head, english, live);
    for (long i = 0; i < std::min<long>(count, maskBits); ++i) {
        if (rowMask >> i & 1U)
            html +=
                valueTableRow(QString::number(tau[i], 'g', 6), QString::number(factor * value[i], 'E', 2));
    }
    return html + valueTableEnd();
}

double meanBetween(const QVector<double>& x, const QVector<double>& y, double x1, double x2)
{
    const auto [low, high] = std::minmax(x1, x2);
    double sum = 0.0;
    int count = 0;
    for (int i = 0; i < x.size() && i < y.size(); ++i) {
        // Of the comparisons with NaN none holds.
        if (!(x[i] >= low && x[i] <= high))
            continue;
        sum += y[i];
        ++count;
    }
    return count ? sum / count : 0.0;
}
