#include "store/core/recordingload.h"

#include "base/debuglog.h"
#include "base/globals.h"
#include "record/record.h"
#include "store/core/recordingday.h"
#include "store/core/recordingtime.h"

#include <algorithm>
#include <limits>
#include <memory>
#include <new>

namespace {

constexpr int daySeconds = 86400;
constexpr qint64 mostDays = 65535; // of the iterator of doubleArray
constexpr qint64 longestPart = 1000000; // samples
/// A day of samples a second apart is one block.
constexpr qint64 samplesAtOnce = 1 << 20;
/// Samples farther apart than a page of memory are read one by one.
constexpr qint64 oneByOneFrom = 4096 / datSampleSize;
constexpr int mostLines = 10; // of a message

/// What becomes of the samples of a day.
struct Conversion {
    double unit; // s of a mark
    double shift; // s
    double factor; // of the values
    double* t;
    double* x;

    void put(qint64 place, const char* bytes) const
    {
        const DatSample sample = decodeSample(bytes);
        t[place] = sample.mark * unit + shift;
        x[place] = sample.value * factor;
    }
};

/// Reads `wanted` samples, `step` apart, from `index` on. Returns how many came. `goOn` is asked now and
/// then.
qint64 readSamples(const RecordingDay& day, qint64 index, qint64 wanted, qint64 step, const Conversion& to,
    QByteArray& block, const std::function<bool(double)>& goOn)
{
    const bool oneByOne = step >= oneByOneFrom;
    const qint64 perBlock = oneByOne ? 1 : std::max<qint64>(1, samplesAtOnce / step);
    qint64 done = 0;
    while (done < wanted) {
        const qint64 taken = std::min(perBlock, wanted - done);
        const qint64 span = (taken - 1) * step + 1;
        block.resize(int(span * datSampleSize));
        const qint64 got = day.read(index + done * step, span, block.data());
        const qint64 whole = std::min(taken, (got + step - 1) / step);
        for (qint64 i = 0; i < whole; ++i)
            to.put(done + i, block.constData() + i * step * datSampleSize);
        done += whole;
        if (whole < taken || (!oneByOne && done < wanted && !goOn(double(done) / double(wanted))))
            break;
    }
    return done;
}

} // namespace

RecordingLoad::RecordingLoad(const mapStruct& map, const QString& directory)
    : m_map(map)
    , m_directory(directory)
{
}

void RecordingLoad::say(const QString& title, const QString& text)
{
    DebugLOG((title + QLatin1String(": ") + text).toUtf8().constData());
    m_messages << mapStruct::Message{title, text, {}, true};
}

void RecordingLoad::noteDamage(const RecordingDay& day, qint64 offset)
{
    m_damage << tr("Ошибки чтения данных ")
            + tr("%1.dat, смещение %2").arg(day.path, QString::number(offset));
}

RecordingLoad::Outcome RecordingLoad::load(const RecordingStretch& stretch, Record* rec)
{
    deleteRecord(rec);
    m_stretch = stretch;
    m_stretch.kdec = std::max(1, stretch.kdec);
    m_messages.clear();
    m_damage.clear();
    m_anchor = Anchor();
    m_day = 0;
    m_skip = m_bytesRead = 0;
    m_lastT = m_shift = 0.0;
    m_stopped = false;
    m_tellShortDays = true;
    Outcome outcome = loadDays(rec);
    if (m_damage.size() > mostLines) {
        const int more = m_damage.size() - mostLines;
        m_damage = m_damage.mid(0, mostLines) << tr("и ещё %1").arg(more);
    }
    const QString title = tr("Ошибки чтения данных измерения  ");
    if (!m_damage.isEmpty())
        say(title, m_damage.join(QLatin1Char('\n')));
    if (m_stopped)
        outcome = Outcome::Stopped;
    else if (outcome != Outcome::Failed && rec->n_cnt == 0) {
        outcome = Outcome::Failed;
        say(title, tr("В выбранном интервале нет отсчетов."));
    }
    if (outcome == Outcome::Failed || outcome == Outcome::Stopped)
        deleteRecord(rec);
    return outcome;
}

RecordingLoad::Outcome RecordingLoad::loadDays(Record* rec)
{
    const QDate from = m_stretch.start.date();
    const qint64 days = from.daysTo(m_stretch.stop.date()) + 1;
    // The date alone: a time that summer time leaves out on this machine is valid for the device.
    if (!m_stretch.start.date().isValid() || !m_stretch.stop.date().isValid() || days < 1 || days > mostDays)
        return Outcome::Loaded; // without a sample, which is told
    m_days = int(days);
    rec->num_in_days = std::make_unique<qint64[]>(std::size_t(m_days));
    rec->n_days = 0;
    findAnchor();
    for (m_day = 0; m_day < m_days; ++m_day) {
        RecordingDay day;
        if (!openDay(&day, from.addDays(m_day)))
            return Outcome::Failed;
        placeDay(&day);
        checkCount(day);
        const bool whole = readDay(&day, rec);
        m_bytesRead += day.bytesRead;
        if (m_stopped)
            return Outcome::Stopped;
        if (!whole)
            return Outcome::Partial;
        if (progress && !progress(double(m_day + 1) / m_days)) {
            m_stopped = true;
            return Outcome::Stopped;
        }
    }
    return Outcome::Loaded;
}

/// When the stretch begins on a later day than its recording, the first mark of the recording tells the
/// clock.
void RecordingLoad::findAnchor()
{
    const QDateTime begin = m_stretch.recordingStart;
    if (!begin.date().isValid() || begin.date() >= m_stretch.start.date())
        return;
    RecordingDay day;
    if (day.readSpan(m_map.filePath(begin.date(), m_stretch.channel), m_map.structType, begin,
            dayEnd(begin.date()), true)
        && day.openData()) {
        day.takeOffsets([](qint64) {});
        if (day.count > 0)
            m_anchor = {day.span.start, day.mark(0)};
    }
    m_bytesRead += day.bytesRead;
}

bool RecordingLoad::openDay(RecordingDay* day, const QDate& date)
{
    const QDateTime from = m_day == 0 ? m_stretch.start : dayStart(date);
    const bool toEvening = m_day < m_days - 1 || m_stretch.toEnd;
    const QDateTime to = toEvening ? dayEnd(date) : m_stretch.stop;
    const QString path = m_map.filePath(date, m_stretch.channel);
    if (!day->readSpan(path, m_map.structType, from, to, m_day == 0)) {
        say(tr("Ошибки чтения информации о записи  "),
            tr("структура № ") + QString::number(day->suspect) + QLatin1Char('\n') + path
                + QLatin1String(".inf"));
        return false;
    }
    if (!day->openData()) {
        say(tr("Ошибки чтения данных измерения  "),
            path + QLatin1String(".dat") + tr(" файл не открывается!!!"));
        return false;
    }
    day->takeOffsets([this, day](qint64 offset) { noteDamage(*day, offset); });
    return true;
}

/// Ties the marks of the day to the clock, and narrows it to the chosen times.
void RecordingLoad::placeDay(RecordingDay* day)
{
    QDateTime timeOfFirst = day->span.start;
    if (day->count > 0) {
        const qint32 mark = day->mark(0);
        if (!m_anchor.time.date().isValid())
            m_anchor = {day->span.start, mark};
        // A day that goes on says 00:00:00; its first sample may come later. Marks that begin anew at
        // midnight do not lead into this day.
        const double since = (double(mark) - m_anchor.mark) * day->unit();
        const double late = since - secondsBetween(m_anchor.time, day->span.start);
        if (late >= 0.0 && late <= secondsBetween(day->span.start, day->span.stop))
            timeOfFirst = plusSeconds(day->span.start, qint64(late));
    }
    day->setClock(timeOfFirst);
    const bool lastDay = m_day == m_days - 1;
    const QDateTime end = dayEnd(day->date);
    const bool chosenStop = lastDay && !m_stretch.toEnd && secondsBetween(m_stretch.stop, end) > 0.0;
    day->trim(m_day == 0 ? m_stretch.start : dayStart(day->date), chosenStop ? m_stretch.stop : end);
}

void RecordingLoad::checkCount(const RecordingDay& day)
{
    // Nobody knows how much of its last day an open recording should fill.
    if (!tellShortDay || !m_tellShortDays || day.span.open)
        return;
    const bool fromMidnight = m_day > 0 || m_stretch.start.time() == QTime(0, 0);
    const bool toMidnight = m_day < m_days - 1 || secondsBetween(m_stretch.stop, dayEnd(day.date)) <= 0.0;
    const qint64 expected = qint64(daySeconds / day.interval());
    if (!fromMidnight || !toMidnight || day.last - day.first + 1 >= expected)
        return;
    m_tellShortDays =
        tellShortDay(tr("Количество отсчетов за ") + day.date.toString(QStringLiteral("dd.MM.yyyy"))
            + tr(" в записи измерений в канале №") + QString::number(m_stretch.channel)
            + tr("\n меньше ожидаемого. Возможно запись повреждена или произошел\n сбой при сохранении "
                 "результатов "
                 "измерений. Запись будет\n загружена, но, возможно, будет отображаться некорректно."));
}

/// Appends the samples of the day as one part; false when they end in the middle or the user stops.
bool RecordingLoad::readDay(RecordingDay* day, Record* rec)
{
    const qint64 step = m_stretch.kdec;
    const qint64 there = std::max<qint64>(0, day->last - day->first + 1);
    const qint64 begin = day->first + m_skip;
    const qint64 wanted = m_skip < there ? (there - m_skip + step - 1) / step : 0;
    m_skip += wanted * step - there;
    if (rec->n_cnt + wanted > std::numeric_limits<int>::max())
        throw std::bad_alloc(); // no array counts further
    if (rec->n_cnt == 0) {
        if (wanted == 0)
            return true; // the record begins on the day of its first sample
        setParameters(*day, rec);
        const int partLength = wanted <= longestPart ? int(wanted) : rec->t.partLen;
        rec->t = doubleArray(partLength);
        rec->x = doubleArray(partLength);
    }
    if (wanted == 0) {
        rec->t.AddNewPart(0);
        rec->x.AddNewPart(0);
        rec->num_in_days[std::size_t(rec->n_days++)] = 0;
        return true;
    }
    const std::shared_ptr<double[]> t(new double[std::size_t(wanted)]);
    const std::shared_ptr<double[]> x(new double[std::size_t(wanted)]);
    const qint32 firstMark = day->mark(begin);
    const double fromMidnight = firstMark * day->unit() + double(m_day) * daySeconds;
    if (rec->n_cnt > 0 && firstMark * day->unit() + m_shift <= m_lastT && fromMidnight > m_lastT)
        m_shift = double(m_day) * daySeconds;
    const Conversion conversion{day->unit(), m_shift, PhaseKoef(day->span.inf.devType), t.get(), x.get()};
    const qint64 got = readSamples(*day, begin, wanted, step, conversion, m_block, [this](double share) {
        m_stopped = progress && !progress((m_day + share) / m_days);
        return !m_stopped;
    });
    if (m_stopped)
        return false;
    rec->t.addParts(t, {int(got)});
    rec->x.addParts(x, {int(got)});
    rec->num_in_days[std::size_t(rec->n_days++)] = got;
    if (got > 0) {
        if (rec->n_cnt == 0)
            rec->start = day->timeOf(firstMark);
        const QDateTime time = day->timeOf(day->mark(begin + (got - 1) * step));
        const QDateTime evening = dayEnd(day->date);
        rec->stop = secondsBetween(time, evening) < 0.0 ? evening : time;
        rec->dyn_start = rec->dyn_stop = rec->stop;
        m_lastT = t[std::ptrdiff_t(got - 1)];
    }
    rec->n_cnt += got;
    rec->dat_pos = day->begin + (day->last + 1) * datSampleSize;
    if (got < wanted)
        noteDamage(*day, day->begin + (begin + got * step) * datSampleSize);
    return got == wanted;
}

void RecordingLoad::setParameters(const RecordingDay& day, Record* rec) const
{
    rec->Kdec = day.interval() * m_stretch.kdec;
    rec->Band = 0; // a recording tells none
    rec->ch = m_stretch.channel;
    rec->ref_sig = day.span.inf.refName;
    rec->meas_sig = day.span.inf.measName;
    rec->devType = quint8(day.span.inf.devType);
    // A code that stands for nothing is shown as the last kind, "parameter".
    rec->dataType = std::min<quint16>(quint8(day.span.inf.dataType), quint16(numOfRecTypes - 1));
    rec->path = m_directory;
    rec->freqTau = 1.0;
    rec->dyn_n_cnt = 0;
    rec->dynamic = false;
}
