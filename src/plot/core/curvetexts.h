#pragma once

#include <QString>
#include <QVector>

/// The display string of a curve: 21 characters, the average in columns 0 to 9 and the trend in columns 11 to
/// 20, both in format e with 2 digits, blank where not computed.
namespace curvetext {

QString blank();
QString withAverage(const QString& text, double value);
QString withoutAverage(const QString& text);
QString withTrend(const QString& text, double value);
QString withoutTrend(const QString& text);

} // namespace curvetext

/// A curve in the box of averages and trends.
struct CurveTextRow {
    QString title; ///< shown as it stands, never as markup
    QString text; ///< the display string
};

/// The box of averages and trends as rich text; empty when no curve has text. A column without any value has
/// an empty head.
QString curveTextTable(
    const QVector<CurveTextRow>& rows, const QString& averageHead, const QString& trendHead);
