#include "record/staticrecord.h"

#include "base/debuglog.h"
#include "base/sleep.h"

#include <QByteArray>

#include <algorithm>
#include <cmath>
#include <optional>
#include <vector>

namespace {

/// Samples that both arrays hold in a day.
int dayLength(const Record& rec, int day)
{
    const int inT = day < rec.t.parts.size() && rec.t.DayData(day) ? rec.t.DayLengths.at(day) : 0;
    const int inX = day < rec.x.parts.size() && rec.x.DayData(day) ? rec.x.DayLengths.at(day) : 0;
    if (inT != inX)
        DebugLOG(("want nextEl: day=" + QByteArray::number(day)).constData());
    return std::max(0, std::min(inT, inX));
}

/// The middle one of the rates of a day's samples against its first; it goes to the log only.
void logMiddleRate(int day, const double* t, const double* x, int n)
{
    std::vector<double> rates;
    rates.reserve(size_t(n));
    for (int i = 1; i < n; ++i) {
        const double rate = (x[i] - x[0]) / (t[i] - t[0]);
        if (!std::isnan(rate)) // has no place in an order
            rates.push_back(rate);
    }
    if (rates.empty())
        return;
    const auto middle = rates.begin() + std::ptrdiff_t(rates.size() / 2);
    std::nth_element(rates.begin(), middle, rates.end());
    DebugLOG(("Mean (day = " + QByteArray::number(day) + ") = " + QByteArray::number(*middle, 'e', 6))
                 .constData());
}

/// Closes up the n values of one day and gives how many are left. `before` is the last value kept so far.
int closeUp(double* x, int n, std::optional<double>& before)
{
    int kept = 0;
    int next = 0;
    if (!before) { // the very first sample stays
        before = x[next++];
        ++kept;
    }
    while (next < n) {
        double value = x[next++];
        if (value == *before) {
            if (next == n)
                break;
            value = x[next++]; // not compared, so that the third of three equal values stays
        }
        x[kept++] = value;
        before = value;
    }
    return kept;
}

/// Sets the lengths of the first days of an array.
void shorten(doubleArray& array, const std::vector<int>& lengths)
{
    int change = 0;
    int before = 0; // old total
    for (int day = 0; day < array.DayLengths.size(); ++day) {
        const int total = array.DayLengths[day];
        if (size_t(day) < lengths.size()) {
            change += lengths[size_t(day)] - (total - before);
            array.filled[day] = lengths[size_t(day)];
        }
        before = total;
        array.DayLengths[day] += change;
    }
    array.count = array.DayLengths.isEmpty() ? 0 : array.DayLengths.constLast();
}

void recount(Record& rec)
{
    const DayLenScale& days = rec.t.DayLengths;
    rec.n_days = days.size();
    rec.n_cnt = days.isEmpty() ? 0 : days.constLast();
    rec.num_in_days = days.isEmpty() ? nullptr : std::make_unique<qint64[]>(size_t(days.size()));
    for (int day = 0; day < days.size(); ++day)
        rec.num_in_days[size_t(day)] = days.at(day);
}

} // namespace

int StaticRecord::removeF0Values(Record& rec)
{
    ownSamples(&rec);
    int removed = 0;
    std::vector<int> lengths;
    std::optional<double> before;
    for (int day = 0; day < std::min(rec.t.parts.size(), rec.x.parts.size()); ++day) {
        sleep(5);
        const int length = dayLength(rec, day);
        int kept = 0;
        if (length > 0) {
            logMiddleRate(day, rec.t.DayData(day), rec.x.DayData(day), length);
            kept = closeUp(rec.x.DayData(day), length, before);
        }
        removed += length - kept;
        lengths.push_back(kept);
    }
    shorten(rec.t, lengths);
    shorten(rec.x, lengths);
    recount(rec);
    return removed;
}

void StaticRecord::removeXValues(int*, int) { }
