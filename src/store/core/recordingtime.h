#pragma once

#include <QDateTime>
#include <QString>

/// Times of a recording are those of the device's clock, which knows no summer time: differences count by the
/// calendar, whatever the zone of this machine.

/// Seconds from `from` to `to`, with the fraction.
double secondsBetween(const QDateTime& from, const QDateTime& to);
QDateTime plusSeconds(const QDateTime& from, qint64 seconds);
QDateTime dayStart(const QDate& day); // 00:00:00
QDateTime dayEnd(const QDate& day); // 23:59:59

/// The time of day of a text of an information structure, by the first of the global `Formats` that gives a
/// valid date; `missing` when none does, or when that one holds no time.
QTime timeOfText(const QString& text, const QTime& missing);
