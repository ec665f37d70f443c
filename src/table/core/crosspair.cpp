#include "table/core/crosspair.h"

#include "base/debuglog.h"
#include "base/largepages.h"
#include "base/parallel.h"
#include "record/comparerecords.h"
#include "record/record.h"
#include "stats/cross.h"
#include "table/core/commonsamples.h"
#include "table/core/daywriter.h"

#include <QCoreApplication>
#include <QStringList>

#include <algorithm>
#include <cmath>
#include <functional>
#include <iterator>
#include <limits>

namespace {

/// Arguments of a kernel, and what its value is divided by.
struct Product {
    double *x, *y, *u, *v;
    double divisor = 1.0;
};

std::vector<std::vector<double>> valuesOf(CrossKernel kernel, const std::vector<Product>& rows, long n,
    const TauScale& scale, const std::function<bool(double)>& progress)
{
    if (!kernel || n < 1 || scale.size() == 0)
        return {};
    std::vector<std::vector<double>> values(rows.size(), std::vector<double>(scale.size()));
    std::vector<std::function<void()>> tasks;
    tasks.reserve(rows.size() * scale.size());
    for (size_t row = 0; row < rows.size(); ++row) {
        for (size_t k = 0; k < scale.size(); ++k) {
            tasks.emplace_back([&, row, k] {
                const Product& of = rows[row];
                values[row][k] = kernel(n, long(scale.factor[k]), of.x, of.y, of.u, of.v) / of.divisor;
            });
        }
    }
    if (!runTasks(tasks, progress))
        return {};
    return values;
}

/// Appends what `of` gives for each of n values, through a buffer small enough to stay in the cache.
template <class Of> void append(std::vector<double>& array, const double* values, int n, Of of)
{
    double buffer[512];
    for (int done = 0; done < n;) {
        const int count = std::min(n - done, int(std::size(buffer)));
        std::transform(values + done, values + done + count, buffer, of);
        array.insert(array.end(), buffer, buffer + count);
        done += count;
    }
}

int samplesIn(Span span)
{
    return span.last - span.first + 1;
}

Span overlap(Span one, Span other)
{
    return {std::max(one.first, other.first), std::min(one.last, other.last)};
}

/// The distance that common samples stay within, both ends included: the last number below half an interval.
double farthestApart(const Record& record)
{
    return std::nextafter(record.Kdec * 0.5, -std::numeric_limits<double>::infinity());
}

/// Whether the samples are paired by their order.
bool byOrder(CrossMoments moments, const Record& a, const Record& b)
{
    return moments == CrossMoments::Simultaneous && a.start == b.start && a.t.count > 0 && b.t.count > 0;
}

/// As many samples of each as both have.
Span leading(const Record& a, const Record& b)
{
    return {0, std::min(a.t.count, b.t.count) - 1};
}

QDateTime moment(const Record& record, double t)
{
    const double later = t - startTime(record);
    return std::abs(later) < 1e12 ? record.start.addMSecs(std::llround(later * 1000.0)) : record.start;
}

/// Calls triple(t, x) with the samples that stand at the same time, times on the scale of the first record.
template <class Triple>
void forEachTriple(const Record* const (&records)[3], const Span (&spans)[3], double farthest, Triple triple)
{
    const double shift[3] = {0.0, timeShift(*records[0], *records[1]), timeShift(*records[0], *records[2])};
    SampleWalk walk[3] = {
        {*records[0], spans[0].first}, {*records[1], spans[1].first}, {*records[2], spans[2].first}};
    while (true) {
        double t[3], x[3];
        for (int i = 0; i < 3; ++i) {
            while (!walk[i].atEnd() && std::isnan(walk[i].t()))
                walk[i].next();
            if (walk[i].atEnd() || walk[i].index() > spans[i].last)
                return;
            t[i] = shift[i] + walk[i].t();
            x[i] = walk[i].x();
        }
        const auto [earliest, latest] = std::minmax_element(t, t + 3);
        if (*latest - *earliest <= farthest) {
            triple(t, x);
            for (SampleWalk& each : walk)
                each.next();
        } else {
            walk[earliest - t].next();
        }
    }
}

/// The name of the signal that stands on the plus side of the record with this sign, or on the other.
QString plusOf(const Record& record, int sign)
{
    return sign > 0 ? record.meas_sig : record.ref_sig;
}

QString minusOf(const Record& record, int sign)
{
    return plusOf(record, -sign);
}

QString channelsOf(const Record& a, const Record& b)
{
    return QStringLiteral("%1, %2").arg(a.ch).arg(b.ch);
}

CrossRow comparatorRow(const Record& a, const Record& b)
{
    const QString channels = channelsOf(a, b);
    return {channels,
        QCoreApplication::translate("CrossRows", "Шум компаратора (по каналам ") + channels
            + QLatin1Char(')')};
}

bool oneSignal(const Record& record)
{
    return record.ref_sig == record.meas_sig;
}

bool samePair(const Record& a, const Record& b)
{
    return (a.ref_sig == b.ref_sig && a.meas_sig == b.meas_sig)
        || (a.ref_sig == b.meas_sig && a.meas_sig == b.ref_sig);
}

bool areThreeClocks(const Record& a, const Record& b, const Record& c)
{
    QStringList names{a.ref_sig, a.meas_sig, b.ref_sig, b.meas_sig, c.ref_sig, c.meas_sig};
    names.removeDuplicates();
    return names.size() == 3 && !oneSignal(a) && !oneSignal(b) && !oneSignal(c) && !samePair(a, b)
        && !samePair(a, c) && !samePair(b, c);
}

/// The spans of three records that all of them cover; false when there is none.
bool commonSpans(Record* const (&records)[3], Span (&spans)[3])
{
    for (Span& span : spans)
        span = {0, std::numeric_limits<int>::max()};
    for (const auto& [i, j] : hatPairs) {
        Span first{}, second{};
        if (compareRecords2(records[i], records[j], first.first, first.last, second.first, second.last) != 1)
            return false;
        spans[i] = overlap(spans[i], first);
        spans[j] = overlap(spans[j], second);
    }
    return samplesIn(spans[0]) > 0 && samplesIn(spans[1]) > 0 && samplesIn(spans[2]) > 0;
}

/// The clocks of areThreeClocks(), in their order.
void nameClocks(const Record& a, const Record& b, QString (&clock)[3])
{
    const CommonSigns signs = commonSigns(a, b);
    clock[0] = plusOf(a, signs.first);
    clock[1] = minusOf(a, signs.first);
    clock[2] = minusOf(b, signs.second);
}

} // namespace

CrossKernel crossKernel(Statistic statistic, bool overlap)
{
    switch (statistic) {
    case Statistic::Sdev:
        return overlap ? CrossKernel(cross_sco_overlap) : CrossKernel(cross_sco);
    case Statistic::Adev:
        return overlap ? CrossKernel(cross_alan_scdo_overlap) : CrossKernel(cross_alan_scdo);
    case Statistic::Hdev:
        return overlap ? CrossKernel(cross_hadamard_scdo_overlap) : CrossKernel(cross_hadamard_scdo);
    default:
        return nullptr;
    }
}

SignalCase signalCase(const Record& a, const Record& b)
{
    QStringList names{a.ref_sig, a.meas_sig, b.ref_sig, b.meas_sig};
    names.removeDuplicates();
    switch (names.size()) {
    case 1:
        return SignalCase::One;
    case 2:
        return oneSignal(a) && oneSignal(b) ? SignalCase::One : SignalCase::Two;
    case 3:
        return oneSignal(a) || oneSignal(b) ? SignalCase::Unfit : SignalCase::Three;
    default:
        return SignalCase::Unfit;
    }
}

CommonSigns commonSigns(const Record& a, const Record& b)
{
    if (a.meas_sig == b.meas_sig)
        return {1, 1, true};
    if (a.meas_sig == b.ref_sig)
        return {1, -1, true};
    if (a.ref_sig == b.meas_sig)
        return {-1, 1, true};
    if (a.ref_sig == b.ref_sig)
        return {-1, -1, true};
    DebugLOG("CROSSS new SMTH IS WRONG!!!!!!!!!!!!!!");
    return {};
}

CrossStatus crossSpans(Record& a, Record& b, Span& inA, Span& inB, CrossMoments moments)
{
    if (signalCase(a, b) == SignalCase::Unfit)
        return CrossStatus::OtherSignals;
    if (byOrder(moments, a, b))
        inA = inB = leading(a, b);
    else if (compareRecords2(&a, &b, inA.first, inA.last, inB.first, inB.last) != 1)
        return CrossStatus::NoCommonTime;
    return a.Kdec == b.Kdec ? CrossStatus::Ok : CrossStatus::OtherIntervals;
}

CrossStatus alignSpans(
    const Record& a, const Record& b, Span inA, Span inB, CrossSeries& out, CrossMoments moments)
{
    out = CrossSeries();
    const CommonSigns signs = commonSigns(a, b);
    const int fewer = std::min(samplesIn(inA), samplesIn(inB));
    for (std::vector<double>* array : {&out.x, &out.y, &out.d, &out.u, &out.v}) {
        array->reserve(size_t(fewer));
        preferLargePages(array->data(), size_t(fewer) * sizeof(double));
    }
    const double shift = timeShift(a, b);
    const bool ordered = byOrder(moments, a, b);
    const double farthest = ordered ? std::numeric_limits<double>::infinity() : farthestApart(a);
    double origin = 0.0, last = 0.0; // on the scale of a
    forEachRun(a, b, inA, inB, farthest,
        [&](const double* ta, const double* xa, const double* tb, const double* xb, int n) {
            if (out.x.empty())
                origin = *ta;
            last = ta[n - 1];
            const auto later = [origin](double t) { return t - origin; };
            append(out.x, xa, n, [sign = signs.first](double x) { return sign * x; });
            append(out.y, xb, n, [sign = signs.second](double x) { return sign * x; });
            append(out.u, ta, n, later);
            if (ordered)
                append(out.v, ta, n, later);
            else
                append(out.v, tb, n, [=](double t) { return shift + t - origin; });
            return true;
        });
    out.d.resize(out.x.size());
    std::transform(out.y.begin(), out.y.end(), out.x.begin(), out.d.begin(), std::minus<>());
    if (out.x.empty()) {
        out = CrossSeries();
        return CrossStatus::NoPairs;
    }
    out.kind = signalCase(a, b);
    out.countsDiffer = std::abs(samplesIn(inA) - samplesIn(inB)) > 10;
    out.interval = a.Kdec;
    out.start = moment(a, origin);
    out.stop = moment(a, last);
    return CrossStatus::Ok;
}

CrossStatus crossSeries(Record& a, Record& b, CrossSeries& out, CrossMoments moments)
{
    out = CrossSeries();
    Span inA{}, inB{};
    const CrossStatus status = crossSpans(a, b, inA, inB, moments);
    return status == CrossStatus::Ok ? alignSpans(a, b, inA, inB, out, moments) : status;
}

QVector<CrossRow> crossRows(const Record& a, const Record& b)
{
    const QString channels = channelsOf(a, b);
    switch (signalCase(a, b)) {
    case SignalCase::One:
        return {comparatorRow(a, b)};
    case SignalCase::Two:
        return {{channels, QStringLiteral("%1 - %2").arg(a.meas_sig, a.ref_sig)}, comparatorRow(a, b)};
    case SignalCase::Three: {
        const CommonSigns signs = commonSigns(a, b);
        return {{channels, plusOf(a, signs.first)}, {channels, minusOf(a, signs.first)},
            {channels, minusOf(b, signs.second)}};
    }
    case SignalCase::Unfit:
        break;
    }
    return {};
}

std::vector<std::vector<double>> crossStability(CrossKernel kernel, CrossSeries& series,
    const TauScale& scale, const std::function<bool(double)>& progress)
{
    double* x = series.x.data();
    double* y = series.y.data();
    double* d = series.d.data();
    double* u = series.u.data();
    double* v = series.v.data();
    std::vector<Product> rows;
    if (series.kind != SignalCase::Unfit)
        rows.push_back({x, y, u, v});
    if (series.kind == SignalCase::Two)
        rows.push_back({d, d, u, u, 1.4142135623730951}); // two equal comparators make d
    if (series.kind == SignalCase::Three) {
        rows.push_back({x, d, u, u});
        rows.push_back({y, d, v, u});
    }
    return valuesOf(kernel, rows, series.size(), scale, progress);
}

CrossStatus hatSeries(Record& a, Record& b, Record& c, HatSeries& out, CrossMoments moments)
{
    out = HatSeries();
    if (!areThreeClocks(a, b, c))
        return CrossStatus::NotThreeClocks;
    Span spans[3];
    const bool ordered = byOrder(moments, a, b) && byOrder(moments, a, c);
    if (ordered)
        spans[0] = spans[1] = spans[2] = overlap(leading(a, b), {0, c.t.count - 1});
    else if (!commonSpans({&a, &b, &c}, spans))
        return CrossStatus::NoCommonTime;
    if (!(a.Kdec == b.Kdec && a.Kdec == c.Kdec))
        return CrossStatus::OtherIntervals;
    nameClocks(a, b, out.clock);
    const CommonSigns signs = commonSigns(a, b);
    const int sign[3] = {signs.first, signs.second, c.meas_sig == out.clock[1] ? 1 : -1};
    const auto [fewest, most] = std::minmax({samplesIn(spans[0]), samplesIn(spans[1]), samplesIn(spans[2])});
    for (int i = 0; i < 3; ++i) {
        out.x[i].reserve(size_t(fewest));
        out.t[i].reserve(size_t(fewest));
    }
    double origin = 0.0, last = 0.0; // on the scale of a
    const double farthest = ordered ? std::numeric_limits<double>::infinity() : farthestApart(a);
    forEachTriple({&a, &b, &c}, spans, farthest, [&](const double(&t)[3], const double(&x)[3]) {
        if (out.x[0].empty())
            origin = t[0];
        last = t[0];
        for (int i = 0; i < 3; ++i) {
            out.x[i].push_back(sign[i] * x[i]);
            out.t[i].push_back((ordered ? t[0] : t[i]) - origin);
        }
    });
    if (out.x[0].empty()) {
        out = HatSeries();
        return CrossStatus::NoPairs;
    }
    out.countsDiffer = most - fewest > 10;
    out.interval = a.Kdec;
    out.start = moment(a, origin);
    out.stop = moment(a, last);
    return CrossStatus::Ok;
}

QVector<CrossRow> hatRows(const Record& a, const Record& b, const Record& c)
{
    if (!areThreeClocks(a, b, c))
        return {};
    const Record* records[3] = {&a, &b, &c};
    QString clock[3];
    nameClocks(a, b, clock);
    QVector<CrossRow> rows;
    for (int k = 0; k < 3; ++k)
        rows.append({channelsOf(*records[hatPairs[k][0]], *records[hatPairs[k][1]]), clock[k]});
    return rows;
}

std::vector<std::vector<double>> hatStability(
    CrossKernel kernel, HatSeries& series, const TauScale& scale, const std::function<bool(double)>& progress)
{
    std::vector<Product> rows;
    for (const auto& [i, j] : hatPairs)
        rows.push_back({series.x[i].data(), series.x[j].data(), series.t[i].data(), series.t[j].data()});
    return valuesOf(kernel, rows, series.size(), scale, progress);
}
