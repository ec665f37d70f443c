#include "cli/clirecordingoptions.h"

#include "cli/clioptions.h"
#include "cli/clivalues.h"

#include <QCommandLineParser>
#include <QSet>

namespace {

constexpr int mostChannels = 16;

/// A date alone is the beginning of the day, or with `evening` its last second.
QDateTime readTime(const QCommandLineParser& parser, const char* name, bool evening)
{
    const std::optional<QString> text = valueOf(parser, name);
    if (!text)
        return {};
    const QDate date = QDate::fromString(*text, QStringLiteral("yyyy-MM-dd"));
    if (date.isValid())
        return {date, evening ? QTime(23, 59, 59) : QTime(0, 0)};
    const QDateTime time = QDateTime::fromString(*text, QStringLiteral("yyyy-MM-dd hh:mm:ss"));
    if (!time.isValid())
        throw Misuse{QStringLiteral("--%1: \"%2\" is neither a date as \"yyyy-MM-dd\" nor one with a time as "
                                    "\"yyyy-MM-dd hh:mm:ss\"")
                         .arg(QString::fromLatin1(name), *text)};
    return time;
}

QVector<int> readChannels(const QCommandLineParser& parser)
{
    QVector<int> channels;
    if (!valueOf(parser, "channel"))
        return channels;
    const QString list = parser.values(QStringLiteral("channel")).join(QLatin1Char(','));
    for (const QString& text : list.split(QLatin1Char(','))) {
        bool ok = false;
        const int channel = text.trimmed().toInt(&ok);
        if (!ok || channel < 1 || channel > mostChannels)
            throw Misuse{
                QStringLiteral("--channel: \"%1\" is not a number from 1 to %2").arg(text).arg(mostChannels)};
        if (!channels.contains(channel))
            channels << channel;
    }
    return channels;
}

int readDecimation(const QCommandLineParser& parser)
{
    const std::optional<QString> text = valueOf(parser, "kdec");
    if (!text)
        return 1;
    bool ok = false;
    const int kdec = text->toInt(&ok);
    if (!ok || kdec < 1)
        throw Misuse{QStringLiteral("--kdec: \"%1\" is not a whole number above 0").arg(*text)};
    return kdec;
}

/// --list takes the choice of the recording and a style of the table, and nothing else.
void checkList(const QCommandLineParser& parser)
{
    const QSet<QString> good{QStringLiteral("recording"), QStringLiteral("from"), QStringLiteral("to"),
        QStringLiteral("channel"), QStringLiteral("list"), QStringLiteral("csv"), QStringLiteral("json")};
    for (const QString& name : parser.optionNames()) {
        if (!good.contains(name))
            throw Misuse{QStringLiteral("--%1 does not go with --list").arg(name)};
    }
}

/// What only text files have to be told.
void checkFileOptions(const QCommandLineParser& parser)
{
    if (!parser.positionalArguments().isEmpty())
        throw Misuse{QStringLiteral("--recording takes the place of files: \"%1\"")
                         .arg(parser.positionalArguments().first())};
    for (const char* name : {"format", "interval", "start", "multiplier", "frequency"}) {
        if (isGiven(parser, name))
            throw Misuse{QStringLiteral("--%1 does not go with --recording").arg(QString::fromLatin1(name))};
    }
}

} // namespace

void addRecordingOptions(QCommandLineParser& parser)
{
    parser.addOptions({
        {QStringLiteral("recording"),
            QStringLiteral("Reads recordings of a phase comparator from this folder, in place of files."),
            QStringLiteral("DIR")},
        {QStringLiteral("from"),
            QStringLiteral("First day of the recordings, or with a time the first moment. Default: the first "
                           "day in the folder."),
            QStringLiteral("\"yyyy-MM-dd hh:mm:ss\"")},
        {QStringLiteral("to"), QStringLiteral("The last day or moment likewise."),
            QStringLiteral("\"yyyy-MM-dd hh:mm:ss\"")},
        {QStringLiteral("channel"),
            QStringLiteral("Channels, from 1, by commas; each stretch of recording becomes a record."),
            QStringLiteral("LIST")},
        {QStringLiteral("kdec"), QStringLiteral("Takes only every K-th sample. Default: 1."),
            QStringLiteral("K")},
        {QStringLiteral("list"), QStringLiteral("Lists what the folder of --recording holds, and ends.")},
        {QStringLiteral("save-recording"),
            QStringLiteral("Writes the records as read (or made by --diff, --merge) to this folder, as a "
                           "recording."),
            QStringLiteral("DIR")},
        {QStringLiteral("save-ascii"),
            QStringLiteral("Writes the record as processed to this text file, with a line \"time value\" for "
                           "each sample."),
            QStringLiteral("FILE")},
    });
}

void readRecordingOptions(const QCommandLineParser& parser, CliOptions& options)
{
    options.saveRecording = valueOf(parser, "save-recording").value_or(QString());
    options.saveAscii = valueOf(parser, "save-ascii").value_or(QString());
    RecordingChoice& choice = options.recording;
    choice.directory = valueOf(parser, "recording").value_or(QString());
    if (!options.isRecording()) {
        for (const char* name : {"from", "to", "channel", "kdec", "list"}) {
            if (isGiven(parser, name))
                throw Misuse{QStringLiteral("--%1 needs --recording").arg(QString::fromLatin1(name))};
        }
        return;
    }
    checkFileOptions(parser);
    choice.list = isGiven(parser, "list");
    if (choice.list)
        checkList(parser);
    choice.from = readTime(parser, "from", false);
    choice.to = readTime(parser, "to", true);
    if (choice.from.isValid() && choice.to.isValid() && choice.to < choice.from)
        throw Misuse{QStringLiteral("--to lies before --from")};
    choice.channels = readChannels(parser);
    choice.kdec = readDecimation(parser);
    if (choice.channels.isEmpty() && !choice.list)
        throw Misuse{QStringLiteral("--recording needs --channel, or --list")};
}
