#include "record/record.h"

#include "base/debuglog.h"
#include "base/globals.h"

#include <QByteArray>
#include <QTime>

#include <algorithm>
#include <cmath>
#include <limits>
#include <new>

namespace {

qint64 total(const Record& rec)
{
    return rec.t.DayLengths.isEmpty() ? 0 : rec.t.DayLengths.constLast();
}

void logAddress(const char* text, const Record* rec)
{
    DebugLOG((text + QByteArray::number(reinterpret_cast<quintptr>(rec), 16)).constData());
}

/// The source's number of samples, checked against its time axis.
qint64 checkedCount(const Record& src, const char* complaint)
{
    if (src.n_cnt != total(src))
        DebugLOG(complaint);
    return total(src);
}

/// Samples in part `day` as the record tells them, or as its time axis does when it has no list of them.
qint64 dayCount(const Record& rec, int day)
{
    if (rec.num_in_days)
        return rec.num_in_days[day];
    return day < rec.t.DayLengths.size() ? rec.t.DayLengths.at(day) : 0;
}

int partSize(qint64 n)
{
    if (n < 0 || n > std::numeric_limits<int>::max())
        throw std::bad_array_new_length();
    return int(n);
}

void copyDayCounts(const Record& src, Record& dst)
{
    dst.num_in_days = std::make_unique<qint64[]>(size_t(partSize(src.n_days)));
    for (int day = 0; day < src.n_days; ++day)
        dst.num_in_days[day] = dayCount(src, day);
    dst.n_days = src.n_days;
}

/// What every kind of copy takes over.
void copyCommon(const Record& src, Record& dst, const char* complaint)
{
    dst.Kdec = src.Kdec;
    dst.Band = src.Band;
    dst.ch = src.ch;
    dst.meas_sig = src.meas_sig;
    dst.ref_sig = src.ref_sig;
    dst.n_cnt = checkedCount(src, complaint);
    dst.freqTau = src.freqTau;
    dst.start = src.start;
    dst.stop = src.stop;
    dst.path = src.path;
    dst.RecID = src.RecID;
    dst.dynamic = src.dynamic;
    copyDayCounts(src, dst);
}

void copyLive(const Record& src, Record& dst)
{
    dst.dyn_start = src.dyn_start;
    dst.dyn_stop = src.dyn_stop;
    if (src.dyn_n_cnt > 0) {
        dst.dyn_t = src.dyn_t;
        dst.dyn_x = src.dyn_x;
    }
}

/// Number of samples that part `day` of an array really holds, at most n.
int existing(const doubleArray& array, int day, qint64 n)
{
    return day < array.DayLengths.size() ? int(std::clamp<qint64>(n, 0, array.DayLengths.at(day))) : 0;
}

void resetArray(doubleArray& array, qint64 partLength)
{
    array.clear();
    array = doubleArray(int(std::min<qint64>(partLength, std::numeric_limits<int>::max())));
}

void copyDay(const doubleArray& src, doubleArray& dst, int day, int size)
{
    dst.AddNewPart(size);
    dst.append__(src.DayData(day), existing(src, day, size));
}

void shareDay(const doubleArray& src, doubleArray& dst, int day, int size)
{
    const bool complete = size > 0 && day < src.parts.size() && src.DayLengths.at(day) == size;
    if (complete && src.capacity.at(day) / 2 <= size) // a buffer mostly empty is not worth holding
        dst.sharePart(src, day);
    else
        copyDay(src, dst, day, size);
}

template <class Day> void fullCopy(Record* src, Record* dst, Day takeDay)
{
    if (src == dst)
        return;
    deleteRecord(dst);
    copyCommon(*src, *dst, "CR: wrong n_cnt!!!!");
    dst->dataType = src->dataType;
    dst->devType = src->devType;
    dst->dyn_n_cnt = src->dyn_n_cnt;
    resetArray(dst->x, src->n_cnt);
    resetArray(dst->t, src->n_cnt);
    for (int day = 0; day < src->n_days; ++day) {
        const int size = partSize(dayCount(*src, day));
        takeDay(src->x, dst->x, day, size);
        takeDay(src->t, dst->t, day, size);
    }
    copyLive(*src, *dst);
    dst->dat_pos = src->dat_pos;
    logAddress("rec copied ", dst);
}

void appendSamples(const doubleArray& src, doubleArray& dst, qint64 n)
{
    for (int day = 0; day < src.parts.size() && n > 0; ++day) {
        const int share = existing(src, day, n);
        dst.append(src.DayData(day), share);
        n -= share;
    }
}

bool startsAtItsTime(const Record& rec)
{
    double first = std::nan("");
    rec.t.mid(0, 1, 1, &first, 0.0);
    return first == QTime(0, 0).secsTo(rec.start.time());
}

} // namespace

int RecIsValid(Record* rec)
{
    const qint64 samples = total(*rec);
    if (rec->n_cnt != samples) {
        DebugLOG("RecIsValid: wrong n_cnt!!!!");
        rec->n_cnt = samples;
    }
    doubleArray& t = rec->t;
    t.resetIterator(0);
    if (samples < 2)
        return 0;
    if (t.DayLengths.at(t.itDay)
        == 0) { // `count` was left behind, so that the iterator stands on an empty part
        bool ok = false;
        if (t.nextEl(ok); !ok)
            return 0;
    }
    double before = t.DayData(t.itDay)[t.itPos];
    for (int good = 0; good < samples - 1; ++good) {
        bool ok = false;
        const double* now = t.nextEl(ok);
        if (!ok || !(*now > before))
            return good; // 0 for a bad first step, as for a valid record
        before = *now;
    }
    return 0;
}

void deleteRecord(Record* rec)
{
    rec->dyn_t.clear();
    rec->dyn_x.clear();
    rec->t.clear();
    rec->x.clear();
    rec->n_cnt = 0;
    rec->n_days = 0;
    rec->num_in_days.reset();
    rec->RecID = 0;
    logAddress("rec deleted ", rec);
}

void copyRecParamOnly(Record* src, Record* dst)
{
    if (src == dst)
        return;
    deleteRecord(dst);
    DebugLOG("param rec copied");
    copyCommon(*src, *dst, "CRparam: wrong n_cnt!!!!");
    dst->dataType = src->dataType;
    dst->devType = src->devType;
}

void copyRecord(Record* src, Record* dst)
{
    fullCopy(src, dst, copyDay);
}

void shareRecord(Record* src, Record* dst)
{
    fullCopy(src, dst, shareDay);
}

void moveRecord(Record* src, Record* dst)
{
    if (src == dst)
        return;
    *dst = std::move(*src);
    deleteRecord(src);
}

void ownSamples(Record* rec)
{
    rec->t.unshare();
    rec->x.unshare();
}

void copyRecordSmart(Record* src, Record* dst)
{
    if (src == dst)
        return;
    deleteRecord(dst);
    copyCommon(*src, *dst, "CRsmrt: wrong n_cnt!!!!");
    qint64 longest = 0;
    for (int day = 0; day < src->n_days; ++day)
        longest = std::max(longest, dayCount(*src, day));
    resetArray(dst->x, longest);
    resetArray(dst->t, longest);
    if (total(*src) > 0 && !startsAtItsTime(*src)) {
        appendSamples(src->x, dst->x, dst->n_cnt);
        appendSamples(src->t, dst->t, dst->n_cnt);
    } else {
        for (int day = 0; day < src->n_days; ++day) {
            dst->x.append(src->x.DayData(day), existing(src->x, day, dayCount(*src, day)));
            dst->t.append(src->t.DayData(day), existing(src->t, day, dayCount(*src, day)));
        }
    }
    copyLive(*src, *dst);
}

void addDayToRec(Record*) { }

double PhaseKoef(int devType)
{
    constexpr double microsecond = -1e-06; // of the opposite sign to Record::x
    constexpr double table[16] = {microsecond, microsecond, microsecond, -1.0, microsecond, microsecond,
        microsecond, microsecond, -1.0, -1.0, microsecond, microsecond, microsecond, microsecond, microsecond,
        1.0};
    return devType >= 0 && devType < 16 ? table[devType] : 1.0;
}

quint8 newDevID()
{
    return ++lastUsedDevID;
}
