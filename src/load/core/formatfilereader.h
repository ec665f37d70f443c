#pragma once

#include "load/core/formattemplate.h"

#include <QCoreApplication>
#include <QList>
#include <QString>
#include <QStringList>
#include <QVector>

#include <functional>
#include <memory>
#include <string>
#include <vector>

class LineSource;
class LineWalker;
class PlainLines;
class QFile;
class QSaveFile;
struct Record;

/// Reads a text file line by line through a format template (see formattemplate.h), and writes a record as
/// text.
///
/// Lines that are blank or start with "#" do not count. A line at fault goes on the bad list; a file with
/// more than 200 of them is given up for most templates: no further line is converted.
///
/// What a line does not give is NaN; a field that cannot be converted gives 0. For the forms of numbers see
/// numbertext.h. When the last variable takes the rest of the line and the rest is not one number, its first
/// word counts, so that surplus fields do no harm.
class FormatFileReader {
    Q_DECLARE_TR_FUNCTIONS(FormatFileReader)

public:
    enum class Status {
        NotRead,
        CannotOpen, // systemError() tells why
        ReadError, // likewise; nothing is kept
        TemplateRefused, // compiled().fault tells why; the file was not touched
        Cancelled, // nothing is kept
        TooLong, // more than 2^31 - 1 lines; nothing is kept
        NoLines, // no line that is neither blank nor a comment
        Parsed,
    };

    explicit FormatFileReader(QString format);
    ~FormatFileReader();
    FormatFileReader(const FormatFileReader&) = delete;
    FormatFileReader& operator=(const FormatFileReader&) = delete;

    /// Drops all data and compiles another template.
    void setNewFormat(QString format);
    /// Number of "[" in the text.
    static int NumOfVars(QString format);

    /// Reads a file. `*data` becomes the reader's table of arrays: for each variable one value a line, with
    /// room for one value more. It lives until the next read or template. `lines` is the number of lines that
    /// count, and the result the ascending indices of the bad ones. When the file cannot be opened, both
    /// outputs stay untouched and the result is empty; a template that cannot be used gives no lines.
    QList<int> ParseTheFile(QString fileName, double*** data, int& lines);

    /// Writes the record to `file`, which is opened and closed here: comment lines as they stand, or else the
    /// default header when it is asked for, then a line "time value" for each sample, all ended by CR LF. 0
    /// on success, 1 when the file cannot be opened or not be written whole, or when the progress stops it.
    int SaveToASCII(Record* rec, QFile* file, QStringList* comment, bool defaultHeader);
    /// The same through a temporary file: what stood under the name before stays unless the result is 0.
    int SaveToASCII(Record* rec, QSaveFile* file, QStringList* comment, bool defaultHeader);
    /// The lines of the default header, without line ends; `withBand` puts the band into the second one.
    static QStringList defaultHeader(const Record& rec, bool withBand);
    /// The text that SaveToASCII writes, in UTF-8. `rec`'s iterators move; `comment` may be null.
    static std::string asciiText(Record* rec, const QStringList* comment, bool defaultHeader);

    /// The array of a variable, which then outlives the reader's table; null when nothing was read.
    std::shared_ptr<double[]> column(int variable) const;

    /// Called about every two megabytes with the share of the file read, or of the samples made into text;
    /// false stops the reading or the writing.
    void setProgress(std::function<bool(double)> progress) { m_progress = std::move(progress); }

    const FormatTemplate& compiled() const { return m_format; }
    /// Outcome of the last read.
    Status status() const { return m_status; }
    /// The system's reason for CannotOpen and ReadError.
    QString systemError() const { return m_systemError; }
    const QList<int>& badLines() const { return m_bad; }
    /// Number in the file, from 1, of the line with this index, 0 to lines - 1.
    qint64 fileLine(int index) const;

private:
    struct FreeMemory {
        void operator()(double* memory) const;
    };
    using Column = std::unique_ptr<double[], FreeMemory>;
    /// From line `index` on, the number in the file is the index plus `offset`.
    struct Numbering {
        int index;
        qint64 offset;
    };

    void dropData();
    void resizeColumns(qint64 lines);
    class PlainBlock;
    Status parseBlocks(LineSource& source);
    bool takeBlock(PlainBlock& block, LineWalker& walker);
    bool takePlain(const PlainLines& plain);
    bool parseLines(char* begin, char* end, LineWalker& walker);
    bool makeRoom(qint64 lines);
    void number(int index, qint64 offset);
    bool parseLine(LineWalker& walker, char* begin, char* end, double* row);
    void logFault(const char* text);

    FormatTemplate m_format;
    std::function<bool(double)> m_progress;
    Status m_status = Status::NotRead;
    QString m_systemError;
    std::vector<Column> m_columns;
    std::vector<std::shared_ptr<double[]>> m_shared; // the columns once they have their length
    std::vector<double*> m_table; // the columns as they are handed out
    qint64 m_room = 0; // lines that the columns can take
    qint64 m_taken = 0; // bytes of the file up to the end of the block at hand
    qint64 m_fileSize = 0;
    int m_lines = 0;
    qint64 m_fileLines = 0; // those that do not count too
    QList<int> m_bad;
    std::vector<Numbering> m_numbering;
    qint64 m_faults = 0; // log lines that the file has asked for
};
