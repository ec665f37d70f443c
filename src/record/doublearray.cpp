#include "record/doublearray.h"

#include "base/debuglog.h"
#include "base/globals.h"

#include <QByteArray>

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <new>
#include <utility>

namespace {

constexpr int newPartSize = 100000;
constexpr int reachOfIterator = 65535; // parts; the iterator's part number is 16 bits wide

} // namespace

doubleArray::doubleArray(int partLength)
    : partLen(partLength)
{
}

doubleArray& doubleArray::operator=(const doubleArray& other)
{
    parts = other.parts;
    capacity = other.capacity;
    filled = other.filled;
    DayLengths = other.DayLengths;
    count = other.count;
    itDay = other.itDay;
    itPos = other.itPos;
    partLen = other.partLen;
    return *this;
}

void doubleArray::AddNewPart(int n)
{
    if (n < 0)
        throw std::bad_array_new_length();
    parts.append(n > 0 ? std::shared_ptr<double[]>(new double[size_t(n)]) : nullptr);
    capacity.append(n);
    filled.append(0);
    DayLengths.append(total());
}

void doubleArray::append(double v)
{
    if (!appendInPlace(v))
        append(&v, 1);
}

void doubleArray::append(const double* src, int n)
{
    if (parts.isEmpty()) {
        debArr = "AddNewPart in append";
        AddNewPart(newPartSize);
    }
    appendParts(src, n);
}

void doubleArray::append_(double v)
{
    if (!appendInPlace(v))
        append_(&v, 1);
}

void doubleArray::append_(const double* src, int n)
{
    if (parts.isEmpty())
        addToCount(n);
    else
        appendParts(src, n);
}

void doubleArray::append__(const double* src, int n)
{
    if (!src || n < 0)
        return;
    if (!parts.isEmpty()) {
        const int length = lastLength();
        if (length > partLen)
            DebugLOG((" wow! " + QByteArray::number(length)).constData());
        growLast(qint64(length) + n);
        writeLast(length, src, n);
    }
    addToCount(n);
}

void doubleArray::appendParts(const double* src, int n)
{
    const int threshold = partLen > 0 ? partLen : newPartSize;
    int length = lastLength();
    if (length > threshold)
        DebugLOG((" wow! " + QByteArray::number(length)).constData());
    int done = src ? 0 : std::max(n, 0);
    while (done < n) {
        const int room = std::max(threshold - length, 0);
        const int share = std::min(room, n - done);
        if (parts.constLast()) {
            growLast(qint64(length) + share);
            writeLast(length, src + done, share);
        }
        done += share;
        if (done < n) {
            AddNewPart(newPartSize); // whatever partLen is
            length = 0;
        }
    }
    addToCount(n);
}

void doubleArray::writeLast(int offset, const double* src, int n)
{
    if (qint64(total()) + n > std::numeric_limits<int>::max())
        throw std::bad_array_new_length();
    std::copy_n(src, n, parts.constLast().get() + offset);
    filled.last() = offset + n;
    DayLengths.last() += n;
}

void doubleArray::growLast(qint64 size)
{
    if (size <= capacity.constLast())
        return;
    const qint64 largest = std::numeric_limits<int>::max();
    if (size > largest)
        throw std::bad_array_new_length();
    const qint64 roomy =
        capacity.constLast() > 0 ? std::min(largest, std::max(size, 2 * qint64(capacity.constLast()))) : size;
    std::shared_ptr<double[]> larger(new double[size_t(roomy)]);
    std::copy_n(parts.constLast().get(), lastLength(), larger.get());
    parts.last() = std::move(larger);
    capacity.last() = int(roomy);
}

void doubleArray::addToCount(int n)
{
    const qint64 sum = qint64(count) + n;
    count = int(std::clamp<qint64>(sum, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

double& doubleArray::onlyElement()
{
    for (int part = 0; part < parts.size(); ++part) {
        if (DayLengths.at(part) > 0 && parts.at(part))
            return parts.at(part)[0];
    }
    if (!parts.isEmpty() && parts.constFirst() && filled.constFirst() > 0) // taken off by removeLast
        return parts.constFirst()[0];
    DebugLOG("ERROR throw 0;!");
    throw 0;
}

double& doubleArray::findElement(int i)
{
    if (count == 1)
        return onlyElement(); // for every i
    const double share = count > 0 && !parts.isEmpty() ? (total() - 1) / double(parts.size()) : 0.0;
    const double guess = share != 0.0 ? std::ceil(i / share) : -1.0;
    if (guess >= 0.0) {
        int part = guess >= parts.size() ? parts.size() - 1 : int(guess);
        while (part >= 0 && part < parts.size()) {
            const int last = DayLengths[part] - 1;
            const int beforeFirst = last - DayLengths.at(part);
            if (i > last) {
                ++part;
            } else if (i <= beforeFirst) {
                --part;
            } else {
                m_lastPart.store(part, std::memory_order_relaxed);
                return parts.constData()[part][i - beforeFirst - 1];
            }
        }
        DebugLOG("Strange index, can't find");
    }
    DebugLOG("ERROR throw 0;!");
    throw 0;
}

double* doubleArray::DayData(int day) const
{
    return day >= 0 && day < parts.size() ? parts.at(day).get() : nullptr;
}

void doubleArray::mid(int start, int n, int step, double* dst, double base) const
{
    const qint64 last = (qint64(n) - 1) * step + start;
    // An index equal to count passes.
    if (start < 0 || start > count || last > count || !dst || parts.isEmpty())
        return;
    int part = 0;
    qint64 offset = start;
    int done = 0;
    while (done < n) {
        while (part < parts.size() && offset >= DayLengths.at(part) && (parts.at(part) || done == 0))
            offset -= DayLengths.at(part++);
        while (offset < 0 && part > 0)
            offset += DayLengths.at(--part);
        if (part >= parts.size() || offset < 0) { // outside the data; a negative step may lead back into them
            dst[done++] = std::nan("");
            offset += step;
            continue;
        }
        const double* from = parts.at(part).get();
        if (!from) { // a part of size 0 takes up one output, and the offset is left as it is
            ++done;
            ++part;
            continue;
        }
        const qint64 inPart = step > 0 ? (DayLengths.at(part) - offset + step - 1) / step
            : step < 0                 ? offset / -qint64(step) + 1
                                       : n;
        const int share = int(std::min<qint64>(n - done, inPart));
        if (step == 1)
            std::transform(
                from + offset, from + offset + share, dst + done, [base](double v) { return v - base; });
        else
            for (int k = 0; k < share; ++k)
                dst[done + k] = from[offset + qint64(k) * step] - base;
        done += share;
        offset += qint64(share) * step;
    }
}

double* doubleArray::nextInLaterPart(bool& ok)
{
    ok = false;
    const int reach = std::min(parts.size(), reachOfIterator);
    if (itDay + 1 >= reach)
        return firstBuffer();
    int part = itDay + 1;
    while (part + 1 < reach && DayLengths.at(part) == 0)
        ++part;
    itDay = quint16(part);
    itPos = 0;
    ok = DayLengths.at(part) > 0;
    return ok ? parts.at(part).get() : firstBuffer();
}

double* doubleArray::prevEl(bool& ok)
{
    ok = false;
    if (itDay >= parts.size())
        return firstBuffer();
    int part = itDay;
    qint64 pos = qint64(itPos) - 1;
    while (pos < 0 && part > 0)
        pos = qint64(DayLengths.at(--part)) - 1;
    // Values that removeLast() took off the end still stand in the buffer.
    if (pos < 0 || pos >= std::max(DayLengths.at(part), filled.at(part)))
        return firstBuffer();
    itDay = quint16(part);
    itPos = quint32(pos);
    ok = true;
    return parts.at(part).get() + pos;
}

void doubleArray::resetIterator(int index)
{
    itDay = 0;
    itPos = 0;
    if (index < 0 || index >= count)
        return;
    for (int part = 0; part < std::min(parts.size(), reachOfIterator); ++part) {
        const int length = DayLengths.at(part);
        if (index < length) {
            itDay = quint16(part);
            itPos = quint32(index);
            return;
        }
        index -= length;
    }
}

void doubleArray::resetIterator(int day, int pos)
{
    const bool inside =
        day >= 0 && day < std::min(parts.size(), reachOfIterator) && pos >= 0 && pos < DayLengths.at(day);
    itDay = quint16(inside ? day : 0);
    itPos = quint32(inside ? pos : 0);
}

void doubleArray::removeLast(int n)
{
    if (n > 0 && !parts.isEmpty())
        DayLengths.last() -= std::min(n, lastLength());
}

void doubleArray::replaceDay(int day, const double* src, int n)
{
    if (day < 0 || day >= parts.size() || !src)
        return;
    if (n < 0)
        throw std::bad_array_new_length();
    const int change = n - DayLengths.at(day);
    if (qint64(total()) + change > std::numeric_limits<int>::max())
        throw std::bad_array_new_length();
    std::shared_ptr<double[]> buffer(new double[size_t(n)]);
    std::copy_n(src, n, buffer.get());
    parts[day] = std::move(buffer);
    capacity[day] = n;
    filled[day] = n;
    for (int part = day; part < DayLengths.size(); ++part)
        DayLengths[part] += change;
}

void doubleArray::clear()
{
    parts.clear();
    capacity.clear();
    filled.clear();
    DayLengths.clear();
    count = 0;
}

void doubleArray::addPart(std::shared_ptr<double[]> buffer, int length)
{
    parts.append(std::move(buffer));
    capacity.append(length); // what lies behind belongs to others
    filled.append(length);
    DayLengths.append(total() + length);
    addToCount(length);
}

void doubleArray::addParts(const std::shared_ptr<double[]>& buffer, const QVector<int>& lengths)
{
    double* at = buffer.get();
    for (const int length : lengths) {
        addPart(std::shared_ptr<double[]>(buffer, at), length);
        at += length;
    }
}

void doubleArray::sharePart(const doubleArray& src, int day)
{
    addPart(src.parts.at(day), src.DayLengths.at(day));
}

void doubleArray::unshare()
{
    // Parts may lie in one buffer: it is shared when it has more users than these.
    std::map<std::shared_ptr<double[]>, long, std::owner_less<>> users;
    for (const std::shared_ptr<double[]>& part : qAsConst(parts))
        ++users[part];
    for (auto& [buffer, count] : users)
        count = buffer.use_count() - 1 - count; // less the key itself
    for (int day = 0; day < parts.size(); ++day) {
        const auto user = users.find(parts.at(day));
        if (user == users.end() || user->second < 1)
            continue;
        const int length = std::max(filled.at(day), DayLengths.at(day)); // the longer after removeLast()
        std::shared_ptr<double[]> own(new double[size_t(length)]);
        std::copy_n(parts.at(day).get(), length, own.get());
        parts[day] = std::move(own);
        capacity[day] = length;
    }
}
