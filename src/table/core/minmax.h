#pragma once

#include <QDateTime>

#include <vector>

struct Record;

/// A curve that stands for a record in a graph.
struct GraphSeries {
    std::vector<double> t;
    std::vector<double> x;
    bool complete = true; ///< false when there was more to show than fits
};

/// Reduces a record to at most 5000 stretches, each shown by its minimum and its maximum in the order of
/// their times; t is in seconds from the first sample of the record, plus `offset`.
///
/// Runs without gaps share the 5000 by their lengths, and a run too short for a share is left out. Short
/// stretches go in as they are, so that a record of up to 5000 samples without gaps stays whole. With
/// `removeFirst` the first value is taken off. NaN values count neither as minimum nor as maximum.
GraphSeries minMaxSeries(Record& record, double offset, bool removeFirst);

enum class GraphPeriod { Hour, Day };

/// Means over the civil hours or days that hold a value, the first and the last one too when the record
/// covers a part of them only; at most 10000 of them. t is for hours the whole hours from the hour of
/// `origin` on, for days the modified Julian day. With `removeFirst` the first value is taken off.
GraphSeries periodMeans(const Record& record, GraphPeriod period, const QDateTime& origin, bool removeFirst);

/// Mean frequencies over the civil hours or days: from the first value of a period to the first value of the
/// next one, over the time between them. There is none where the next one lies two periods away or more, and
/// none for the last period. t is as for periodMeans.
GraphSeries periodFrequencies(const Record& record, GraphPeriod period, const QDateTime& origin);
