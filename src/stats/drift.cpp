#include "stats/drift.h"

#include "base/debuglog.h"
#include "stats/fits.h"
#include "stats/middle.h"

#include <QByteArray>

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace {

using Points = QVector<QPair<double, double>>;

constexpr int leastDay = 40; // points
constexpr int greatestGap = 3600; // s
constexpr double day = 86400.0; // s

/// The middle value, or the mean of the two in the middle; reorders the values.
double median(std::vector<double>& values)
{
    Middle middle{};
    if (std::none_of(values.begin(), values.end(), [](double value) { return std::isnan(value); })) {
        middle = middleOf(values);
    } else { // NaN has no order of its own: it ranks last, so that the order stays defined
        std::sort(values.begin(), values.end(),
            [](double a, double b) { return a < b || (std::isnan(b) && !std::isnan(a)); });
        middle = {values[(values.size() - 1) / 2], values[values.size() / 2]};
    }
    return values.size() % 2 ? middle.upper : (middle.lower + middle.upper) / 2.0;
}

QByteArray number(double value)
{
    return QByteArray::number(value, 'g', 17);
}

}

void medianFilt(QVector<QPair<double, double>>& points, double, int& removed)
{
    if (points.isEmpty())
        return;
    std::vector<double> values;
    values.reserve(size_t(points.size()));
    for (const auto& point : qAsConst(points))
        values.push_back(point.second);
    const double middle = median(values);
    for (double& value : values)
        value = std::fabs(value - middle);
    const double bound = 3.0 * median(values);
    const auto outlier = [=](const QPair<double, double>& p) { return bound < std::fabs(p.second - middle); };
    const auto end = std::remove_if(points.begin(), points.end(), outlier);
    removed += static_cast<int>(points.end() - end);
    points.erase(end, points.end());
}

bool removeDaysWithGaps(QVector<QPair<double, double>>& points, int maxGap, int& removed, int minLength)
{
    if (points.size() < minLength) {
        removed += points.size();
        return true;
    }
    for (int i = 0; i + 1 < points.size(); ++i) {
        const double before = points.at(i).first, after = points.at(i + 1).first;
        if (after - before > maxGap) {
            DebugLOG(("FAIL " + number(after - before) + " Removed " + number(before) + ' ' + number(after))
                         .constData());
            removed += points.size();
            return true;
        }
    }
    return false;
}

double calcLinRegDrift(
    double* t, double* x, double& drift, QList<int> dayEnds, double& error, double interval)
{
    dayEnds.erase(std::unique(dayEnds.begin(), dayEnds.end()), dayEnds.end());
    if (!(interval >= 1.0))
        dayEnds.clear(); // a smaller step would lead past the samples that the day ends count
    Points frequencies; // middle time of the day, frequency
    Points points; // of the day at hand
    int removed = 0;
    long i = 0;
    for (const int dayEnd : qAsConst(dayEnds)) {
        long end = i;
        while (static_cast<double>(end) * interval < dayEnd)
            ++end;
        points.resize(int(end - i));
        for (auto& point : points) {
            point = {t[i], x[i]};
            ++i;
        }
        if (points.size() < leastDay)
            continue;
        medianFilt(points, 1e-08, removed);
        if (removeDaysWithGaps(points, greatestGap, removed, leastDay))
            continue;
        double intercept = 0.0, spread = 0.0;
        const double frequency = linreg(points.size(), points, intercept, spread);
        frequencies.append({(points.constFirst().first + points.constLast().first) * 0.5, frequency});
    }
    double intercept = 0.0;
    double slopeError = std::numeric_limits<double>::quiet_NaN(); // stays when linreg has no line to fit
    drift = linreg(frequencies.size(), frequencies, intercept, slopeError) * day;
    error = slopeError * day;
    return drift;
}
