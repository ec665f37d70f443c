#include "table/core/outliers.h"

#include "record/record.h"
#include "stats/middle.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

const double nothing = std::nan("");

/// The samples of one day.
struct Day {
    const double* t;
    double* x;
    int length;
};

enum class Kind { Sample, Quotient, QuotientChange };

Kind kindOf(bool phase, bool change)
{
    if (phase)
        return change ? Kind::QuotientChange : Kind::Quotient;
    return change ? Kind::Quotient : Kind::Sample;
}

/// Forms the value of one sample after the other, each from its neighbours as they are then.
class Values {
public:
    explicit Values(Kind kind)
        : m_kind(kind)
    {
    }

    /// The value of sample x at t; NaN where there is none.
    double of(double t, double x) const
    {
        if (m_kind == Kind::Sample)
            return x;
        const double quotient = quotientOf(t, x);
        return m_kind == Kind::Quotient ? quotient : quotient - m_quotient;
    }

    /// Makes a sample the neighbour of the next one.
    void keep(double t, double x)
    {
        m_quotient = quotientOf(t, x);
        m_t = t;
        m_x = x;
    }

    double lastT() const { return m_t; }
    double lastX() const { return m_x; }

private:
    double quotientOf(double t, double x) const { return t > m_t ? (x - m_x) / (t - m_t) : nothing; }

    Kind m_kind;
    double m_t = nothing;
    double m_x = nothing;
    double m_quotient = nothing;
};

/// The middle one of the values of a day in their order; NaN for a day without values.
double median(const Day& day, Kind kind)
{
    std::vector<double> usable;
    usable.reserve(size_t(day.length));
    Values values(kind);
    for (int i = 0; i < day.length; ++i) {
        const double value = values.of(day.t[i], day.x[i]);
        if (std::isfinite(value))
            usable.push_back(value);
        values.keep(day.t[i], day.x[i]);
    }
    return usable.empty() ? nothing : middleOf(usable).upper;
}

class Filter {
public:
    Filter(bool phase, bool change, double limit, const RandomSource& random)
        : m_phase(phase)
        , m_change(change)
        , m_limit(limit)
        , m_random(random)
    {
    }

    qint64 run(const Day& day) const
    {
        const Kind kind = kindOf(m_phase, m_change);
        const double middle = median(day, kind);
        if (std::isnan(middle))
            return 0;
        qint64 replaced = 0;
        double largest = 0.0; // deviation seen so far
        double shift = 0.0; // of a phase, old less new
        Values values(kind);
        for (int i = 0; i < day.length; ++i) {
            double& x = day.x[i];
            const double deviation = std::abs(values.of(day.t[i], x - shift) - middle);
            if (deviation > m_limit) {
                const double old = x;
                x = replacement(values, day.t[i], middle, largest);
                if (m_phase && std::isfinite(old - x))
                    shift = old - x;
                ++replaced;
            } else {
                x -= shift;
                if (deviation > largest)
                    largest = deviation;
            }
            values.keep(day.t[i], x);
        }
        return replaced;
    }

private:
    double random() const { return m_random() / 2147483647.0; }

    double replacement(const Values& values, double t, double middle, double largest) const
    {
        const double r1 = random();
        const double r2 = random();
        const double width = 2.0 * largest * (r1 - 0.5);
        const double step = t - values.lastT();
        if (!m_change)
            return m_phase ? (middle + width * r2) * step + values.lastX() : middle + width * r2;
        // For phase the second number scales the median too, and a change is taken for a frequency.
        return (m_phase ? (width + middle) * r2 : width * r2 + middle) * step + values.lastX();
    }

    bool m_phase;
    bool m_change;
    double m_limit;
    const RandomSource& m_random;
};

qint64 filterDays(Record& record, const Filter& filter)
{
    qint64 replaced = 0;
    ownSamples(&record);
    for (int day = 0; day < std::min(record.t.parts.size(), record.x.parts.size()); ++day) {
        const int length = std::min(record.t.DayLengths.at(day), record.x.DayLengths.at(day));
        if (length > 0)
            replaced += filter.run({record.t.DayData(day), record.x.DayData(day), length});
    }
    return replaced;
}

} // namespace

std::optional<double> limitFromText(const QString& text)
{
    bool ok = false;
    const double limit = text.trimmed().replace(QLatin1Char(','), QLatin1Char('.')).toDouble(&ok);
    if (!ok || !std::isfinite(limit) || limit < 0.0)
        return std::nullopt;
    return limit;
}

bool limitFilters(std::optional<double> limit, int dataType)
{
    return limit && std::isfinite(*limit) && *limit > 0.0 && !(dataType == 0 && *limit == 1.0);
}

qint64 removeOutliers(Record& record, const OutlierLimits& limits, const RandomSource& random)
{
    const bool phase = record.dataType == 0;
    qint64 replaced = 0;
    if (limitFilters(limits.change, record.dataType))
        replaced += filterDays(record, Filter(phase, true, *limits.change, random));
    if (limitFilters(limits.frequency, record.dataType))
        replaced += filterDays(record, Filter(phase, false, *limits.frequency, random));
    return replaced;
}
