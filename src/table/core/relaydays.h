#pragma once

struct Record;

/// Lays the time axis of a fresh record anew, so that it starts at 0 and each later day starts at the whole
/// part of the last time of the day before plus Kdec, whatever gap or overlap the clock of the device left.
/// The other times of a day keep their distances to its first, times a scale that stretches the day to the
/// length that `start` and `stop` tell. Works on `t` alone, in place.
///
/// The scale is only right for a record of one day, and for the first day of a longer one: those after it
/// are measured from sample 0 or 1 of the record. A scale that is not a positive number, which dates in the
/// wrong order give, counts as 1. Lets the event loop run before every day; the caller holds SLEEP.
void relayDays(Record& record);
