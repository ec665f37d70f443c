#pragma once

#include "record/record.h"

#include <QVector>

#include <vector>

/// The samples of one day.
struct TestDay {
    std::vector<double> t;
    std::vector<double> x;
};

/// Fills a phase record with the parts given, which need not agree in length. `stop` follows from the times.
inline void fillDays(Record& record, const std::vector<TestDay>& days, double interval = 1.0,
    const QDateTime& start = QDateTime(QDate(2026, 3, 1), QTime(0, 0)))
{
    deleteRecord(&record);
    record.n_days = int(days.size());
    record.num_in_days = std::make_unique<qint64[]>(days.size());
    double first = 0.0, last = 0.0;
    for (size_t day = 0; day < days.size(); ++day) {
        const TestDay& samples = days[day];
        record.t.AddNewPart(int(samples.t.size()));
        record.x.AddNewPart(int(samples.x.size()));
        record.t.append__(samples.t.data(), int(samples.t.size()));
        record.x.append__(samples.x.data(), int(samples.x.size()));
        record.num_in_days[day] = qint64(samples.t.size());
        if (!samples.t.empty()) {
            first = record.n_cnt == 0 ? samples.t.front() : first;
            last = samples.t.back();
        }
        record.n_cnt += qint64(samples.t.size());
    }
    record.Kdec = interval;
    record.ref_sig = QStringLiteral("Maser");
    record.meas_sig = QStringLiteral("Clock");
    record.start = start;
    record.stop = start.addSecs(qint64(last - first));
}

inline QVector<double> samplesOf(const doubleArray& array)
{
    QVector<double> samples;
    for (int day = 0; day < array.parts.size(); ++day) {
        for (int i = 0; i < array.DayLengths.at(day); ++i)
            samples.append(array.DayData(day)[i]);
    }
    return samples;
}

/// The lengths of the parts as all counts tell them; empty when the counts disagree.
inline QVector<int> dayLengthsOf(const Record& record)
{
    QVector<int> lengths;
    qint64 sum = 0;
    for (int day = 0; day < record.n_days; ++day) {
        const int length = record.t.DayLengths.at(day);
        if (!record.num_in_days || record.num_in_days[size_t(day)] != length
            || record.x.DayLengths.at(day) != length || record.t.capacity.at(day) < length
            || record.x.capacity.at(day) < length)
            return {};
        lengths.append(length);
        sum += length;
    }
    const bool agree = sum == record.n_cnt && record.t.count == sum && record.x.count == sum
        && record.t.parts.size() == record.n_days && record.x.parts.size() == record.n_days;
    return agree ? lengths : QVector<int>();
}

inline bool rises(const doubleArray& t)
{
    const QVector<double> times = samplesOf(t);
    for (int i = 1; i < times.size(); ++i) {
        if (!(times.at(i) > times.at(i - 1)))
            return false;
    }
    return true;
}
