#include "load/core/columnfile.h"

#include "base/debuglog.h"
#include "load/core/columnlines.h"
#include "load/core/columnrecord.h"
#include "load/core/linesource.h"
#include "load/core/numbertext.h"
#include "load/core/plainlines.h"
#include "record/record.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <utility>

namespace {

constexpr int mostSamples = std::numeric_limits<int>::max() - 1;
constexpr double mostReserved = 1 << 24; // samples; a guess must not take all memory

struct DatedFile {
    QString name;
    std::optional<qlonglong> number; // the date in the name, as a decimal number
};

std::optional<qlonglong> numberInName(const QString& file, int digits)
{
    const QStringList parts = QFileInfo(file).baseName().split(QLatin1Char('_'));
    for (const QString& part : parts) {
        int begin = part.size();
        while (begin > 0 && part.at(begin - 1).unicode() < 0x80 && isDigit(part.at(begin - 1).toLatin1()))
            --begin;
        if (part.size() - begin < digits)
            continue;
        bool whole = false;
        const qlonglong number = part.mid(begin, digits).toLongLong(&whole);
        return whole ? std::optional<qlonglong>(number) : std::nullopt;
    }
    return std::nullopt;
}

QVector<DatedFile> filesByNameDate(const QStringList& files, const QString& dateFormat)
{
    std::vector<qlonglong> numbers;
    for (const QString& file : files) {
        if (const auto number = numberInName(file, dateFormat.size()))
            numbers.push_back(*number);
    }
    std::sort(numbers.begin(), numbers.end());
    QVector<DatedFile> result;
    for (const qlonglong number : numbers) {
        const QString text = QString::number(number);
        // deliberate: the first file with the digits anywhere in its path, which may be one taken before
        const auto found = std::find_if(files.begin(), files.end(),
            [&text](const QString& file) { return QFileInfo(file).absoluteFilePath().contains(text); });
        if (found != files.end())
            result.append({*found, number});
    }
    return result;
}

/// The date that a number spells; leading zeros of the name are lost. Invalid when it is none.
QDate dateOfNumber(qlonglong number, const DateTimeText& format)
{
    const QByteArray digits = QByteArray::number(number);
    DateTimeText::Moment moment;
    if (!format.hasDate() || !format.read(digits.constData(), digits.constData() + digits.size(), moment))
        return QDate();
    return QDate::fromJulianDay(moment.day);
}

/// One reading of files.
class ColumnReading {
public:
    ColumnReading(const ReadFormat& format, const std::function<bool(double)>& progress, const QDate& today)
        : m_format(format)
        , m_progress(progress)
        , m_lines(format, today)
        , m_times(std::make_shared<std::vector<double>>())
        , m_columns(std::size_t(format.columnNum_data.size()))
        , m_interval(m_lines.interval())
    {
    }

    ColumnResult read(const QVector<DatedFile>& files);

private:
    bool fail(ColumnStatus status);
    bool readFile(const DatedFile& file);
    bool readLines(LineSource& source);
    bool takeLine(char* begin, char* end);
    bool takeSample();
    void addValue(ColumnSeries& column, int index);
    void noteBad();
    void reserve(qint64 taken, qint64 size, std::size_t before);
    void endFile();
    void makeRecords();

    const ReadFormat& m_format;
    const std::function<bool(double)>& m_progress;
    ColumnLines m_lines;
    ColumnResult m_result;
    std::shared_ptr<std::vector<double>> m_times; // of all lines that gave a sample
    std::vector<ColumnSeries> m_columns;
    double m_interval; // s, the estimate
    double m_bytesBefore = 0.0; // in the files before
    double m_bytes = 0.0; // in all files

    QString m_file;
    qint64 m_line = 0; // in the file, from 1
    qint64 m_fileLines = 0; // without blank ones and the head
    std::optional<double> m_firstTime; // of the file's samples in the first data column
    double m_lastTime = 0.0;
};

bool ColumnReading::fail(ColumnStatus status)
{
    m_result.status = status;
    m_result.file = m_file;
    return false;
}

ColumnResult ColumnReading::read(const QVector<DatedFile>& files)
{
    if (!m_lines.isUsable()) {
        fail(ColumnStatus::NoColumns);
        return std::move(m_result);
    }
    for (const DatedFile& file : files)
        m_bytes += double(QFileInfo(file.name).size());
    for (const DatedFile& file : files) {
        if (!readFile(file))
            return std::move(m_result);
    }
    makeRecords();
    return std::move(m_result);
}

bool ColumnReading::readFile(const DatedFile& file)
{
    m_file = file.name;
    m_line = 0;
    m_fileLines = 0;
    m_firstTime.reset();
    if (file.number)
        m_lines.setNameDate(dateOfNumber(*file.number, DateTimeText(m_format.dateFromFileName_format)));
    LineSource source(m_file);
    if (m_progress) {
        source.setProgress([this, &source](double share) {
            return m_progress(m_bytes > 0.0
                    ? std::min(1.0, (m_bytesBefore + share * double(source.size())) / m_bytes)
                    : 0.0);
        });
    }
    const bool open = source.open();
    m_result.systemError = source.error();
    if (source.cancelled())
        return fail(ColumnStatus::Cancelled);
    if (!open)
        return fail(ColumnStatus::CannotOpen);
    if (!readLines(source))
        return false;
    m_bytesBefore += double(source.size());
    endFile();
    return true;
}

bool ColumnReading::readLines(LineSource& source)
{
    char* begin = nullptr;
    char* end = nullptr;
    const std::size_t before = m_times->size();
    bool first = true;
    while (source.next(begin, end)) {
        while (begin < end) {
            char* const behind = lineEnd(begin, end);
            if (++m_line > m_lines.linesToSkip() && !takeLine(begin, behind))
                return false;
            begin = behind < end ? behind + 1 : end;
        }
        if (std::exchange(first, false))
            reserve(source.consumed(), source.size(), before);
    }
    m_result.systemError = source.error();
    if (source.cancelled())
        return fail(ColumnStatus::Cancelled);
    return !source.failed() || fail(ColumnStatus::ReadError);
}

/// Makes room for the rest of a file as its first block suggests.
void ColumnReading::reserve(qint64 taken, qint64 size, std::size_t before)
{
    if (taken <= 0 || size <= taken)
        return;
    const double rest = double(m_times->size() - before) / double(taken) * double(size - taken) * 1.02;
    const std::size_t more = std::size_t(std::min(rest, mostReserved));
    m_times->reserve(m_times->size() + more);
    for (ColumnSeries& column : m_columns)
        column.values.reserve(column.values.size() + more);
}

bool ColumnReading::takeLine(char* begin, char* end)
{
    switch (m_lines.read(begin, end)) {
    case ColumnLines::Outcome::Blank:
        return true;
    case ColumnLines::Outcome::TooFewFields:
        m_result.line = m_line;
        return fail(ColumnStatus::TooFewFields);
    case ColumnLines::Outcome::NoTime:
        noteBad();
        break;
    case ColumnLines::Outcome::Timed:
        if (!takeSample())
            return false;
        break;
    }
    ++m_fileLines;
    return true;
}

bool ColumnReading::takeSample()
{
    const int columns = m_lines.dataColumns();
    int found = 0;
    for (int i = 0; i < columns; ++i)
        found += m_lines.hasValue(i) ? 1 : 0;
    if (found == 0) {
        noteBad();
        return true;
    }
    if (m_times->size() >= std::size_t(mostSamples))
        return fail(ColumnStatus::TooLong);
    for (int i = 0; i < columns; ++i) {
        if (m_lines.hasValue(i))
            addValue(m_columns[std::size_t(i)], i);
        else
            m_columns[std::size_t(i)].dropped.push_back(int(m_times->size()));
    }
    m_result.droppedValues += columns - found;
    m_times->push_back(m_lines.time());
    if (m_lines.hasValue(0)) {
        m_lastTime = m_lines.time();
        if (!m_firstTime)
            m_firstTime = m_lastTime;
    }
    return true;
}

void ColumnReading::addValue(ColumnSeries& column, int index)
{
    constexpr short frequency = 4;
    double value = m_lines.value(index);
    if (m_format.dataType == frequency) {
        column.sum += value * m_lines.interval();
        value = column.sum;
    }
    column.values.push_back(value * m_format.multiplier);
}

void ColumnReading::noteBad()
{
    if (m_result.badLines++ == 0)
        m_result.firstBadFile = m_file;
    if (m_result.firstBad.size() < ColumnResult::mostBadTold && m_file == m_result.firstBadFile)
        m_result.firstBad.append(m_line);
}

void ColumnReading::endFile()
{
    if (m_firstTime) {
        // deliberate: over the lines, not over the steps between them
        const double estimate = (m_lastTime - *m_firstTime) / double(m_fileLines);
        if (estimate > 0.0 && std::isfinite(estimate))
            m_interval = estimate;
    }
    for (ColumnSeries& column : m_columns)
        column.days.endFile(int(column.values.size()), m_interval, m_lines.secondOfStart(), m_fileLines);
}

void ColumnReading::makeRecords()
{
    if (m_times->empty()) {
        fail(ColumnStatus::NoSamples);
        return;
    }
    const ColumnParameters parameters{m_lines.start(), m_interval, m_format.dataType};
    for (ColumnSeries& column : m_columns)
        m_result.records.push_back(makeColumnRecord(parameters, m_times, std::move(column)));
}

QString listed(const QVector<qint64>& numbers)
{
    constexpr int mostListed = 5;
    QStringList texts;
    for (int i = 0; i < std::min(numbers.size(), mostListed); ++i)
        texts.append(QString::number(numbers.at(i)));
    return texts.join(QStringLiteral(", "));
}

} // namespace

QStringList sortedByNameDate(const QStringList& files, const QString& dateFormat)
{
    QStringList result;
    for (const DatedFile& file : filesByNameDate(files, dateFormat))
        result.append(file.name);
    return result;
}

ColumnResult readColumns(
    const ReadFromFilesInfo& info, const std::function<bool(double)>& progress, const QDate& today)
{
    QVector<DatedFile> files;
    if (info.format.dateFromFileName_flag) {
        files = filesByNameDate(info.fileNames, info.format.dateFromFileName_format);
    } else {
        for (const QString& file : info.fileNames)
            files.append({file, std::nullopt});
    }
    ColumnResult result;
    if (files.isEmpty())
        result.status = ColumnStatus::NoFiles;
    else
        result = ColumnReading(info.format, progress, today).read(files);
    if (result.status == ColumnStatus::Ok)
        DebugLOG("reading_OK"); // verbatim
    if (result.status != ColumnStatus::Ok || result.badLines > 0)
        DebugLOG(qPrintable(ColumnTexts::outcome(result)));
    return result;
}

QString ColumnTexts::outcome(const ColumnResult& result)
{
    const QString file = QDir::toNativeSeparators(result.file);
    switch (result.status) {
    case ColumnStatus::Ok:
        break;
    case ColumnStatus::NoFiles:
        return tr("Нет файлов для чтения: файлы не выбраны или в их именах нет даты");
    case ColumnStatus::CannotOpen:
        return tr("Файл %1 не открывается: %2").arg(file, result.systemError);
    case ColumnStatus::ReadError:
        return tr("Ошибка чтения файла %1: %2").arg(file, result.systemError);
    case ColumnStatus::NoColumns:
        return tr("Не задан разделитель или столбец данных, либо номер столбца недопустим");
    case ColumnStatus::TooFewFields:
        return tr("Файл %1, строка %2: столбцов меньше, чем требует формат")
            .arg(file, QString::number(result.line));
    case ColumnStatus::NoSamples:
        if (result.badLines == 0)
            return tr("Нет отсчётов: в файлах нет строк с данными");
        return tr(
            "Нет отсчётов: ни в одной строке не прочитаны и время, и значение; первая такая строка %1 в "
            "файле %2")
            .arg(QString::number(result.firstBad.value(0)), QDir::toNativeSeparators(result.firstBadFile));
    case ColumnStatus::TooLong:
        return tr("Файл %1: отсчётов больше, чем вмещает запись").arg(file);
    case ColumnStatus::Cancelled:
        return tr("Чтение отменено");
    }
    const qint64 samples = result.records.empty() ? 0 : result.records.front()->n_cnt;
    if (result.badLines == 0)
        return tr("Прочитано отсчётов: %1").arg(samples);
    return tr("Прочитано отсчётов: %1; строк без отсчёта: %2, первые в файле %3: %4")
        .arg(QString::number(samples), QString::number(result.badLines),
            QDir::toNativeSeparators(result.firstBadFile), listed(result.firstBad));
}
