#pragma once

#include <QList>

class doubleArray;
struct Record;

/// Finds the span of time that both records cover: 1 when there is one, else 0. The index ranges a0..a1 and
/// b0..b1, ends included, are set in either case; on 1 the first two and the last two samples lie within one
/// step of each other. Time stamps that repeat inside a record may keep the ends from coming that near; the
/// result is 1 then too. A wrong `n_cnt` is repaired and logged. Spans that only touch, and records of fewer
/// than two samples, give 0.
int compareRecords(Record* a, Record* b, int& a0, int& a1, int& b0, int& b1);
int compareRecords2(Record* a, Record* b, int& a0, int& a1, int& b0, int& b1);

/// Lengths of the stretches of a time axis (s) without a gap. A gap is a step above 2 * Kdec or one that does
/// not rise. The very last sample is not counted: the last length is one short, and the sum is the total less
/// one. An axis of fewer than two values gives one 0. Moves the iterator of `t`.
QList<int> break_Tarr_Linkedzones(doubleArray* t, double Kdec);
