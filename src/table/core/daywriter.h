#pragma once

#include "record/record.h"

#include <algorithm>
#include <limits>
#include <vector>

/// Second of the day of `start`; 0 when there is none.
double startSecond(const Record& record);

/// The time t that `start` stands for: the first one; or, when that lies less than a second behind the
/// second of the day, that second, since `start` has then lost its fraction. 0 for a record without a first
/// time.
double startTime(const Record& record);

/// What the times of `other` must be raised by to stand on the scale of `record`.
double timeShift(const Record& record, const Record& other);

/// Walks the samples of a record, as far as both arrays hold them.
class SampleWalk {
public:
    explicit SampleWalk(const Record& record)
        : m_record(record)
    {
        findDay();
    }
    /// From the sample with running index `index` of t on.
    SampleWalk(const Record& record, int index);

    bool atEnd() const { return m_pos >= m_length; }
    /// Running index in t.
    int index() const { return m_before + m_pos; }
    double t() const { return m_t[m_pos]; }
    double x() const { return m_x[m_pos]; }

    /// The samples from here to the end of the day, at least one, as arrays; and steps over some of them.
    int left() const { return m_length - m_pos; }
    const double* times() const { return m_t + m_pos; }
    const double* values() const { return m_x + m_pos; }
    void skip(int count)
    {
        m_pos += count;
        if (m_pos >= m_length)
            nextDay();
    }

    void next()
    {
        if (++m_pos >= m_length)
            nextDay();
    }

private:
    void nextDay();
    void findDay();

    const Record& m_record;
    int m_day = 0;
    int m_before = 0; // samples of t in the days before
    int m_pos = 0;
    int m_length = 0; // of the day, in both arrays
    const double* m_t = nullptr;
    const double* m_x = nullptr;
};

/// Fills the arrays of a record: a part for each civil day that has samples, as large as what goes in, and
/// times that rise.
class DayWriter {
public:
    /// Empties the arrays. `midnight` is the time t of 00:00:00 of the date of `start`.
    DayWriter(Record& record, double midnight);

    /// Adds a sample. One whose time does not rise, or is not finite, is left out and counted.
    void add(double t, double x)
    {
        if (!(t > m_last) || t > std::numeric_limits<double>::max()) {
            ++m_leftOut;
            return;
        }
        if (!(t < m_nextMidnight))
            openDay(t);
        m_last = t;
        m_t.push_back(t);
        m_x.push_back(x);
    }

    /// Adds samples one after the other.
    void add(const double* t, const double* x, int count);

    /// Writes the last day and sets n_days, num_in_days, n_cnt and the part length.
    void finish();

    qint64 leftOut() const { return m_leftOut; }

private:
    void openDay(double t);
    void writeDay();

    Record& m_record;
    double m_midnight;
    double m_nextMidnight;
    double m_last = -std::numeric_limits<double>::infinity();
    qint64 m_leftOut = 0;
    std::vector<double> m_t, m_x; // the day at hand
};
