#include "load/core/asciirecord.h"

#include "record/record.h"

#include <QTime>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr double dayLength = 86400.0; // s
constexpr double farthest = 1e11; // s; keeps dates within the calendar

double secondOfDay(const QDateTime& time)
{
    return time.time().msecsSinceStartOfDay() / 1000.0;
}

/// The boundary behind the days that `time` has passed, as a number of days. `boundary` is the one it has
/// reached.
double nextBoundary(double boundary, double time, double interval)
{
    boundary += std::floor((time - boundary * dayLength / interval) / (dayLength / interval)) + 1.0;
    if (!(boundary * dayLength / interval > time))
        boundary += 1.0; // rounding
    return boundary * dayLength / interval > time ? boundary : std::numeric_limits<double>::infinity();
}

/// start + 1 s - first + the last one rounded.
QDateTime stopTime(const QDateTime& start, double first, double last)
{
    const double seconds = 1.0 - first + std::round(last);
    return start.addMSecs(std::llround(std::clamp(seconds, -farthest, farthest) * 1000.0));
}

} // namespace

AsciiFile::AsciiFile(const AsciiRequest& request)
    : m_request(request)
    , m_interval(request.mask & IntervalGiven ? request.interval : 1.0)
    , m_reader(request.format)
{
}

QStringList AsciiFile::columnNames() const
{
    QStringList names;
    for (const int variable : m_reader.compiled().dataVariables())
        names.append(m_reader.compiled().variables.at(variable).name);
    return names;
}

bool AsciiFile::checkRequest()
{
    if (m_reader.compiled().fault != TemplateFault::None)
        m_result.status = AsciiStatus::TemplateRefused;
    else if (!(m_interval > 0.0) || !std::isfinite(m_interval))
        m_result.status = AsciiStatus::BadInterval;
    else if (!m_request.start.isValid())
        m_result.status = AsciiStatus::BadStart;
    else if (m_reader.compiled().dataVariables().isEmpty())
        m_result.status = AsciiStatus::NoDataColumn;
    return m_result.status == AsciiStatus::Ok;
}

AsciiStatus AsciiFile::readStatus() const
{
    switch (m_reader.status()) {
    case FormatFileReader::Status::Parsed:
        return AsciiStatus::Ok;
    case FormatFileReader::Status::NoLines:
        return AsciiStatus::NoLines;
    case FormatFileReader::Status::TemplateRefused:
        return AsciiStatus::TemplateRefused;
    case FormatFileReader::Status::Cancelled:
        return AsciiStatus::Cancelled;
    case FormatFileReader::Status::TooLong:
        return AsciiStatus::TooLong;
    case FormatFileReader::Status::ReadError:
        return AsciiStatus::ReadError;
    case FormatFileReader::Status::CannotOpen:
    case FormatFileReader::Status::NotRead:
        break;
    }
    return AsciiStatus::CannotOpen;
}

const AsciiResult& AsciiFile::read(const std::function<bool(double)>& progress)
{
    m_result = AsciiResult();
    m_result.templateFault = m_reader.compiled().fault;
    if (!checkRequest())
        return m_result;
    m_reader.setProgress(progress);
    m_reader.ParseTheFile(m_request.fileName, &m_columns, m_result.lineCount);
    m_result.status = readStatus();
    m_result.systemError = m_reader.systemError();
    if (m_result.status != AsciiStatus::Ok)
        return m_result;
    m_scaled.fill(false, m_reader.compiled().variables.size());
    takeTimes();
    if (m_result.sampleCount == 0)
        m_result.status = AsciiStatus::NoSamples;
    else
        splitDays();
    return m_result;
}

// Computes the times in place, takes the lines at fault out of all columns and stops where the times do not
// rise.
void AsciiFile::takeTimes()
{
    const int timeVariable = m_reader.compiled().timeVariable();
    const int variables = m_reader.compiled().variables.size();
    const int lines = m_result.lineCount;
    if (timeVariable < 0)
        m_counted.reset(new double[std::size_t(lines) + 1]);
    m_times = timeVariable < 0 ? m_counted.get() : m_columns[timeVariable];
    const double startSecond = secondOfDay(m_request.start);
    double offset = 0.0;
    double mark = 0.0;
    int kept = 0;
    auto bad = m_reader.badLines().begin();
    for (int i = 0; i < lines; ++i) {
        const double before = mark;
        const double newMark = timeVariable < 0 ? i : m_times[i];
        if (kept == 0) // deliberate: the first t is taken off as it stands, not times the interval
            offset = timeVariable < 0 ? startSecond : startSecond - newMark;
        const double time = newMark * m_interval + offset;
        const bool listed = bad != m_reader.badLines().end() && *bad == i;
        if (listed)
            ++bad;
        if (listed || !std::isfinite(time)) {
            m_result.badLines.append(m_reader.fileLine(i));
            continue;
        }
        if (kept > 0 && !(newMark > before && time > m_times[kept - 1])) {
            m_result.stoppedAtLine = m_reader.fileLine(i);
            break;
        }
        mark = newMark;
        if (kept != i) {
            for (int v = 0; v < variables; ++v)
                m_columns[v][kept] = m_columns[v][i];
        }
        m_times[kept++] = time;
    }
    for (; bad != m_reader.badLines().end(); ++bad)
        m_result.badLines.append(m_reader.fileLine(*bad));
    if (m_request.fractionalFrequency && kept > 0) {
        m_times[kept] = m_times[kept - 1] + m_interval;
        ++kept;
    }
    m_result.sampleCount = kept;
}

void AsciiFile::splitDays()
{
    m_parts.clear();
    double boundary = 1.0; // days
    double boundaryTime =
        boundary * dayLength / m_interval; // deliberate: scaled, although the times are seconds
    int partStart = 0;
    for (int i = 0; i < m_result.sampleCount; ++i) {
        if (m_times[i] < boundaryTime)
            continue;
        boundary = nextBoundary(boundary, m_times[i], m_interval);
        boundaryTime = boundary * dayLength / m_interval;
        if (i > partStart && m_parts.size() < mostParts - 1) { // a record has no empty parts
            m_parts.append(i - partStart);
            partStart = i;
        }
    }
    m_parts.append(m_result.sampleCount - partStart);
}

int AsciiFile::partLength() const
{
    const int lines = m_result.lineCount;
    if (lines * m_interval <= dayLength)
        return std::max(lines, 1);
    return int(std::clamp(dayLength / m_interval, 1.0, double(std::numeric_limits<int>::max())));
}

void AsciiFile::scaleColumn(int variable)
{
    if (m_scaled.at(variable))
        return;
    m_scaled[variable] = true;
    double* const x = m_columns[variable];
    const int samples = m_result.sampleCount;
    if (!m_request.fractionalFrequency) {
        for (int i = 0; i < samples; ++i)
            x[i] *= m_request.multiplier;
        return;
    }
    double sum = 0.0;
    for (int i = 0; i + 1 < samples; ++i) {
        const double step = x[i] * m_request.multiplier * m_interval;
        x[i] = sum;
        sum += step;
    }
    x[samples - 1] = sum;
}

void AsciiFile::setParameters(Record* rec, qint32 channel) const
{
    const quint8 mask = m_request.mask;
    rec->Kdec = m_interval;
    rec->Band = mask & BandGiven ? m_request.band : 10;
    rec->meas_sig = mask & MeasuredGiven ? m_request.measuredName : QStringLiteral("Measured signal");
    rec->ref_sig = mask & ReferenceGiven ? m_request.referenceName : QStringLiteral("Reference signal");
    rec->ch = mask & ChannelGiven ? channel : 0;
    rec->start = m_request.start;
    rec->stop = stopTime(m_request.start, m_times[0], m_times[m_result.sampleCount - 1]);
}

/// Writes the parts of one array, with the values of each line behind each other.
void AsciiFile::interleave(doubleArray& array, const std::vector<const double*>& columns) const
{
    const int each = int(columns.size());
    std::vector<double> values;
    int first = 0;
    for (const int lines : m_parts) {
        const int length = lines * each;
        values.resize(std::size_t(length));
        for (int i = 0; i < length; ++i)
            values[std::size_t(i)] = columns[std::size_t(i % each)][first + i / each];
        array.AddNewPart(length);
        array.append__(values.data(), length);
        first += lines;
    }
}

void AsciiFile::fillArrays(Record* rec, const QVector<int>& variables) const
{
    if (variables.size() == 1) {
        const int timeVariable = m_reader.compiled().timeVariable();
        rec->t.addParts(timeVariable < 0 ? m_counted : m_reader.column(timeVariable), m_parts);
        rec->x.addParts(m_reader.column(variables.constFirst()), m_parts);
    } else {
        std::vector<const double*> values;
        for (const int variable : variables)
            values.push_back(m_columns[variable]);
        interleave(rec->t, std::vector<const double*>(values.size(), m_times));
        interleave(rec->x, values);
    }
    rec->num_in_days = std::make_unique<qint64[]>(std::size_t(m_parts.size()));
    for (int part = 0; part < m_parts.size(); ++part)
        rec->num_in_days[std::size_t(part)] = qint64(m_parts.at(part)) * variables.size();
    rec->n_cnt = rec->x.count;
    rec->n_days = m_parts.size();
}

AsciiStatus AsciiFile::fill(Record* rec, int column, qint32 channel)
{
    if (m_result.status != AsciiStatus::Ok)
        return m_result.status;
    QVector<int> variables = m_reader.compiled().dataVariables();
    if (column != allColumns) {
        if (column < 0 || column >= variables.size())
            return AsciiStatus::NoDataColumn;
        variables = {variables.at(column)};
    }
    if (qint64(m_result.sampleCount) * variables.size() > std::numeric_limits<int>::max())
        return AsciiStatus::TooLong;
    for (const int variable : variables)
        scaleColumn(variable);
    const auto clear = [rec](int partLength) {
        rec->t.clear();
        rec->x.clear();
        rec->t = doubleArray(partLength);
        rec->x = doubleArray(partLength);
        rec->num_in_days.reset();
        rec->n_cnt = 0;
        rec->n_days = 0;
    };
    clear(partLength());
    try {
        fillArrays(rec, variables);
    } catch (...) {
        clear(partLength());
        throw;
    }
    setParameters(rec, channel);
    return AsciiStatus::Ok;
}

AsciiResult readASCIIData(const AsciiRequest& request, Record* rec,
    const std::function<bool(const AsciiResult&)>& goOn, const std::function<bool(double)>& progress)
{
    AsciiFile file(request);
    AsciiResult result = file.read(progress);
    if (!result.badLines.isEmpty() && goOn && !goOn(result))
        result.status = AsciiStatus::Declined;
    if (result.status == AsciiStatus::Ok)
        result.status = file.fill(rec, request.dataColumn, request.channel);
    return result;
}
