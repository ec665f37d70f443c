#include "record/comparerecords.h"

#include "base/debuglog.h"
#include "record/doublearray.h"
#include "record/record.h"

namespace {

int total(const doubleArray& array)
{
    return array.DayLengths.isEmpty() ? 0 : array.DayLengths.constLast();
}

/// The narrowing index range of one record, with the absolute times (s) of its two first and two last
/// samples: only an end that moves is read anew.
struct Span {
    explicit Span(Record& record)
        : rec(record)
        , last(total(record.t) - 1)
    {
        if (rec.n_cnt != last + 1) {
            DebugLOG("compareRecords: wrong n_cnt!!!!");
            rec.n_cnt = last + 1;
        }
        if (last < 1)
            return;
        origin = (rec.start.isValid() ? double(rec.start.toSecsSinceEpoch()) : 0.0) - rec.t[0];
        readFront();
        readRear();
    }

    void dropFirst()
    {
        ++first;
        readFront();
    }

    void dropLast()
    {
        --last;
        readRear();
    }

    void readFront()
    {
        front = origin + rec.t[first];
        second = origin + rec.t[first + 1];
    }

    void readRear()
    {
        rear = origin + rec.t[last];
        nextToRear = origin + rec.t[last - 1];
    }

    Record& rec;
    int first = 0;
    int last;
    double origin = 0.0; // absolute time less the record's own
    double front = 0.0;
    double second = 0.0;
    double nextToRear = 0.0;
    double rear = 0.0;
};

/// One round at both ends; false when nothing moved. While both ranges hold two samples and meet, no step
/// leads out of them, whatever the times are.
bool narrow(Span& a, Span& b)
{
    const int width = a.last - a.first + b.last - b.first;
    if (b.front > a.front && b.front >= a.second)
        a.dropFirst();
    else if (a.front > b.front && a.front >= b.second)
        b.dropFirst();
    if (a.rear > b.rear && a.nextToRear >= b.rear)
        a.dropLast();
    else if (b.rear > a.rear && b.nextToRear >= a.rear)
        b.dropLast();
    return a.last - a.first + b.last - b.first < width;
}

bool endsAreNear(const Span& a, const Span& b)
{
    return b.second > a.front && a.second > b.front && a.rear > b.nextToRear && b.rear > a.nextToRear;
}

bool commonSpan(Span& a, Span& b)
{
    while (a.first < a.last && b.first < b.last) {
        if (!(b.rear > a.front) || !(a.rear > b.front))
            return false;
        const bool moved = narrow(a, b);
        if (endsAreNear(a, b) || !moved)
            return true;
    }
    return false;
}

} // namespace

int compareRecords(Record* a, Record* b, int& a0, int& a1, int& b0, int& b1)
{
    Span spanA(*a);
    Span spanB(*b);
    const bool common = commonSpan(spanA, spanB);
    a0 = spanA.first;
    a1 = spanA.last;
    b0 = spanB.first;
    b1 = spanB.last;
    return common ? 1 : 0;
}

int compareRecords2(Record* a, Record* b, int& a0, int& a1, int& b0, int& b1)
{
    return compareRecords(a, b, a0, a1, b0, b1);
}

QList<int> break_Tarr_Linkedzones(doubleArray* t, double Kdec)
{
    constexpr int block = 64; // looked at as a whole
    QList<int> runs;
    int run = 0;
    bool first = true;
    double before = 0.0;
    const double longest = 2.0 * Kdec;
    const auto goesOn = [longest](double step) { return (step > 0.0) & !(step > longest); };
    for (int day = 0; day < t->parts.size(); ++day) {
        const double* time = t->DayData(day);
        const int length = t->DayLengths.at(day);
        for (int i = 0; i < length;) {
            if (i > 0 && length - i >= block) {
                bool even = true;
                for (int k = i; k < i + block; ++k)
                    even &= goesOn(time[k] - time[k - 1]);
                if (even) {
                    i += block;
                    run += block;
                    before = time[i - 1];
                    continue;
                }
            }
            const double step = time[i] - before;
            before = time[i++];
            if (first) {
                first = false;
                continue;
            }
            ++run;
            if (goesOn(step))
                continue;
            runs.append(run);
            run = 0;
            if (!(step > 0.0) && step > longest) // possible with a negative Kdec only
                runs.append(run);
        }
    }
    t->resetIterator(std::max(total(*t) - 1, 0));
    runs.append(run); // also when it is 0
    return runs;
}
