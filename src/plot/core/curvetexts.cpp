#include "plot/core/curvetexts.h"

#include <algorithm>

namespace {

constexpr int cellWidth = 10;
constexpr int trendColumn = 11;
constexpr int textWidth = 21;

QString cell(double value)
{
    return QString::number(value, 'e', 2).leftJustified(cellWidth, ' ', true);
}

QString average(const QString& text)
{
    return text.left(cellWidth).trimmed();
}

QString trend(const QString& text)
{
    return text.mid(trendColumn).trimmed();
}

/// A text of its own stands in the place of the columns from `from` on.
QString put(const QString& text, int from, const QString& part)
{
    return text.leftJustified(textWidth, ' ', true).replace(from, cellWidth, part);
}

} // namespace

namespace curvetext {

QString blank()
{
    return QString(textWidth, ' ');
}

QString withAverage(const QString& text, double value)
{
    return put(text, 0, cell(value));
}

QString withoutAverage(const QString& text)
{
    return put(text, 0, QString(cellWidth, ' '));
}

QString withTrend(const QString& text, double value)
{
    return put(text, trendColumn, cell(value));
}

QString withoutTrend(const QString& text)
{
    return put(text, trendColumn, QString(cellWidth, ' '));
}

} // namespace curvetext

QString curveTextTable(
    const QVector<CurveTextRow>& rows, const QString& averageHead, const QString& trendHead)
{
    const auto any = [&](auto part) {
        return std::any_of(
            rows.begin(), rows.end(), [&](const CurveTextRow& row) { return !part(row.text).isEmpty(); });
    };
    const bool averages = any(average);
    const bool trends = any(trend);
    if (!averages && !trends)
        return {};
    const auto cellOf = [](const QString& text) {
        return QStringLiteral("<TD align = center>") + text.toHtmlEscaped() + QStringLiteral("</TD>");
    };
    QString html =
        QStringLiteral("<style>td { padding-left: 4px; padding-right: 4px; }</style><TABLE cellspacing=0>"
                       "<TR align = center>")
        + cellOf(QString()) + cellOf(averages ? averageHead : QString())
        + cellOf(trends ? trendHead : QString()) + QStringLiteral("</TR>");
    for (const CurveTextRow& row : rows) {
        if (row.text.trimmed().isEmpty())
            continue;
        html += QStringLiteral("<TR align = center>") + cellOf(row.title) + cellOf(average(row.text))
            + cellOf(trend(row.text)) + QStringLiteral("</TR>");
    }
    return html + QStringLiteral("</TABLE>");
}
