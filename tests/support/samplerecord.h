#pragma once

#include "record/record.h"

#include <functional>
#include <vector>

/// Fills a phase record of `n` samples, `interval` seconds apart, from 2026-03-01 00:00:00 on, in one part a
/// day.
inline void fillRecord(
    Record& record, int n, double interval, const std::function<double(int)>& value, int channel = 1)
{
    deleteRecord(&record);
    const int perDay = std::max(1, int(86400.0 / interval));
    for (int done = 0; done < n; done += perDay) {
        const int count = std::min(perDay, n - done);
        std::vector<double> t, x;
        for (int i = done; i < done + count; ++i) {
            t.push_back(i * interval);
            x.push_back(value(i));
        }
        record.t.AddNewPart(count);
        record.x.AddNewPart(count);
        record.t.append__(t.data(), count);
        record.x.append__(x.data(), count);
    }
    record.n_days = record.t.DayLengths.size();
    record.num_in_days = std::make_unique<qint64[]>(size_t(record.n_days));
    for (int day = 0; day < record.n_days; ++day)
        record.num_in_days[size_t(day)] = record.t.DayLengths.at(day);
    record.n_cnt = n;
    record.Kdec = interval;
    record.Band = 10;
    record.ch = channel;
    record.ref_sig = QStringLiteral("Maser");
    record.meas_sig = QStringLiteral("Clock %1").arg(channel);
    record.start = QDateTime(QDate(2026, 3, 1), QTime(0, 0));
    record.stop = record.start.addSecs(qint64((n - 1) * interval));
}

/// Numbers of the minimal standard generator, in 0 to 1; the seed is the first.
class Lehmer {
public:
    double next()
    {
        const double value = double(m_state) / 2147483647.0;
        m_state = m_state * 16807 % 2147483647;
        return value;
    }

private:
    qint64 m_state = 1234567890;
};
