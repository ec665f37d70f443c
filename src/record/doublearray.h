#pragma once

#include <QList>
#include <QVector>

#include <atomic>
#include <limits>
#include <memory>

/// Running totals of the part lengths: entry i is the number of values in parts 0 to i together. The list
/// operations give totals, `at` gives the length of one part.
class DayLenScale : public QList<int> {
public:
    /// The length of part i. It hides the list's own `at` on purpose; i must be in 0 to length() - 1.
    int at(int i) const
    {
        const QList<int>& totals = *this;
        return i >= 1 ? totals.at(i) - totals.at(i - 1) : totals.at(i);
    }
};

/// One logical array of doubles, addressed by one running index and stored in parts, normally one part a
/// civil day.
///
/// The array counts for itself; the owning Record keeps `n_cnt` and `num_in_days`. Growth never moves old
/// data, with one exception: values written past the end of a part's buffer make that buffer grow. Reading by
/// `operator[]` and `mid` may be done on several threads at once; all else is for one thread.
class doubleArray {
public:
    /// An empty array. `partLength` is the threshold at which `append` and `append_` open a new part.
    explicit doubleArray(int partLength);
    ~doubleArray() = default;
    doubleArray(const doubleArray&) = delete;

    /// Shallow: both arrays then hold the same buffers. Meant for an empty source, to reset an array and its
    /// `partLen` at once.
    doubleArray& operator=(const doubleArray& other);

    /// Adds a part with room for n values, which are not initialised; without a buffer when n is 0. A
    /// negative n throws std::bad_array_new_length.
    void AddNewPart(int n);

    /// Adds n values to the last part, and opens a part of 100000 whenever the last one holds `partLen`
    /// values; the first part is opened as well. Values meant for a part without a buffer are dropped, yet
    /// counted in `count`. A `partLen` that is not positive counts as 100000.
    void append(const double* src, int n);
    void append(double v);
    /// As append, but without parts all values are dropped and counted.
    void append_(const double* src, int n);
    void append_(double v);
    /// Adds n values to the last part, whatever `partLen` is: the fast way to fill a part made by
    /// AddNewPart(n). A part that is too small grows. A null `src` or a negative n changes nothing; without
    /// parts the values are dropped and counted.
    void append__(const double* src, int n);

    /// The value at running index i. An array that counts one value gives that value for every i. An index
    /// without a value logs "ERROR throw 0;!" and throws the integer 0.
    double& operator[](int i);

    /// The buffer of part `day`; null when there is no such part or it was made with size 0.
    double* DayData(int day) const;

    /// Writes the n values start, start + step, ... less `base` to dst. Writes nothing when `start` is
    /// negative, `start` or the last index is above `count` (equal passes), dst is null or there are no
    /// parts. Outputs that lie outside the data are NaN. A part made with size 0 takes up one output, which
    /// stays unwritten.
    void mid(int start, int n, int step, double* dst, double base) const;

    /// Moves the iterator to the next value and gives its place. At the end `ok` is false, the result is the
    /// buffer of the first part (null without parts) and the iterator stays, except that it moves to the last
    /// part when only empty parts follow. The iterator reaches the first 65535 parts.
    double* nextEl(bool& ok);
    /// Moves the iterator to the value before, over empty parts; also onto values that removeLast() took off.
    /// At the front, and when the array was cleared below the iterator, `ok` is false, the result is as for
    /// nextEl and the iterator stays.
    double* prevEl(bool& ok);
    /// Puts the iterator on a running index; on the very first place when there is no such value.
    void resetIterator(int index);
    /// Puts the iterator on a position inside a part; on the very first place when there is no such value.
    void resetIterator(int day, int pos);

    /// Takes up to n values off the last part by its length alone: `filled`, `count` and the buffer stay.
    void removeLast(int n);
    /// Gives part `day` a new buffer with n values. `count` stays. Nothing happens when there is no such part
    /// or `src` is null; a negative n throws std::bad_array_new_length.
    void replaceDay(int day, const double* src, int n);
    /// Drops all parts; `partLen` and the iterator stay.
    void clear();

    /// Adds parts of these lengths that lie one behind the other in a buffer. It may be shared, as by
    /// sharePart().
    void addParts(const std::shared_ptr<double[]>& buffer, const QVector<int>& lengths);
    /// Adds a part that is part `day` of another array, buffer and all. Neither array may be written to in
    /// place before it has been given buffers of its own; appending is no harm.
    void sharePart(const doubleArray& src, int day);
    /// Gives the array a buffer of its own in place of each that it shares.
    void unshare();

    /// One buffer a part; null for a part made with size 0.
    QVector<std::shared_ptr<double[]>> parts;
    /// Size of each buffer, in values.
    QList<int> capacity;
    /// Values written into each part.
    QList<int> filled;
    /// Number of values, the upper limit of the running index.
    int count = 0;
    /// The iterator: part, and position inside the part.
    quint16 itDay = 0;
    quint32 itPos = 0;
    int partLen;
    DayLenScale DayLengths;

private:
    int lastLength() const { return parts.isEmpty() ? 0 : DayLengths.at(parts.size() - 1); }
    int total() const { return DayLengths.isEmpty() ? 0 : DayLengths.constLast(); }
    double* firstBuffer() const { return parts.isEmpty() ? nullptr : parts.constFirst().get(); }
    bool appendInPlace(double v);
    void appendParts(const double* src, int n);
    void writeLast(int offset, const double* src, int n);
    void growLast(qint64 size);
    void addToCount(int n);
    void addPart(std::shared_ptr<double[]> buffer, int length);
    double& findElement(int i);
    double& onlyElement();
    double* nextInLaterPart(bool& ok);

    // Part of the last hit of operator[], only a place to look first.
    std::atomic<int> m_lastPart{0};
};

inline double& doubleArray::operator[](int i)
{
    const int part = m_lastPart.load(std::memory_order_relaxed);
    const QList<int>& totals = DayLengths;
    if (count > 1 && part < totals.size() && totals.constLast() > 1) {
        const int first = part > 0 ? totals.at(part - 1) : 0;
        if (i >= first && i < totals.at(part))
            return parts.constData()[part].get()[i - first];
    }
    return findElement(i);
}

inline double* doubleArray::nextEl(bool& ok)
{
    if (itDay < parts.size() && qint64(itPos) + 1 < DayLengths.at(itDay)) {
        ++itPos;
        ok = true;
        return parts.constData()[itDay].get() + itPos;
    }
    return nextInLaterPart(ok);
}

inline bool doubleArray::appendInPlace(double v)
{
    if (parts.isEmpty())
        return false;
    const int length = lastLength();
    const bool room = length < partLen && length < capacity.constLast();
    if (!room || count == std::numeric_limits<int>::max() || total() == std::numeric_limits<int>::max())
        return false;
    parts.constLast().get()[length] = v;
    filled.last() = length + 1;
    ++DayLengths.last();
    ++count;
    return true;
}
