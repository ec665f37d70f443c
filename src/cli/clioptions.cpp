#include "cli/clioptions.h"

#include "cli/clicommands.h"
#include "cli/clirecordingoptions.h"
#include "cli/clivalues.h"
#include "load/core/formattemplate.h"

#include <QCommandLineParser>

#include <optional>

namespace {

const QString startPattern = QStringLiteral("yyyy-MM-dd hh:mm:ss");

const char example[] = R"(
Examples:
  kronalys-cli samples/clock.txt
  kronalys-cli --stat adev,hdev --overlap --remove-drift samples/clock.txt
  kronalys-cli --format "[x]" --frequency --interval 10 --csv counter.txt
  kronalys-cli --multiplier 1e-9 --stat mdev,tdev --out result --plot pdf ns1.txt ns2.txt
  kronalys-cli --diff maser.txt clock.txt
  kronalys-cli --cross --signals "A-B,A-C" ab.txt ac.txt
  kronalys-cli --limit-y 1e-9 --spectrum --csv clock.txt
  kronalys-cli --recording data --list
  kronalys-cli --recording data --from 2024-03-01 --to 2024-03-07 --channel 3 --stat mdev
  kronalys-cli --recording data --channel 3 --kdec 10 --save-ascii clock.txt
  kronalys-cli --out result --graph phase,freq,stability --freq-interval 100 clock.txt

Exit status: 0 done, 1 the data cannot be read or processed, 2 the command line is wrong.
)";

struct StatisticName {
    const char* name;
    Statistic statistic;
};

constexpr StatisticName statisticNames[] = {
    {"sdev", Statistic::Sdev},
    {"adev", Statistic::Adev},
    {"hdev", Statistic::Hdev},
    {"mdev", Statistic::Mdev},
    {"pdev", Statistic::Pdev},
    {"tdev", Statistic::Tdev},
    {"mtie", Statistic::Mtie},
};

void addOptions(QCommandLineParser& parser)
{
    parser.setApplicationDescription(QStringLiteral(
        "Stability of clocks and oscillators from text files of phase or frequency, and from recordings of "
        "phase comparators."));
    parser.addPositionalArgument(QStringLiteral("FILE"),
        QStringLiteral("Text file with one sample a line; lines that start with # do not count."),
        QStringLiteral("FILE... | --recording DIR"));
    parser.addOptions({
        {{QStringLiteral("h"), QStringLiteral("help")}, QStringLiteral("Shows this help.")},
        {{QStringLiteral("v"), QStringLiteral("version")}, QStringLiteral("Shows the version.")},
        {QStringLiteral("format"),
            QStringLiteral(
                "Template of a line, as \"[t] [x]\": [t] is the time in intervals, [any other name] a "
                "value, <name> is skipped. Default: by the first lines of the file."),
            QStringLiteral("TEMPLATE")},
        {QStringLiteral("interval"),
            QStringLiteral("Seconds between samples; [t] is multiplied by it. Default: 1."),
            QStringLiteral("S")},
        {QStringLiteral("start"),
            QStringLiteral(
                "Date and time of the first sample; once for all files, or once for each of them. Default: "
                "from the head of the file, or its own time."),
            QStringLiteral("\"yyyy-MM-dd hh:mm:ss\"")},
        {QStringLiteral("multiplier"),
            QStringLiteral("Factor from the values to seconds (or to fractional frequency). Default: 1."),
            QStringLiteral("K")},
        {QStringLiteral("frequency"),
            QStringLiteral("The values are fractional frequencies; they are summed to phase, from 0.")},
        {QStringLiteral("stat"),
            QStringLiteral("Statistics, by commas: sdev, adev, hdev, mdev, pdev, tdev, mtie. Default: adev."),
            QStringLiteral("LIST")},
        {QStringLiteral("overlap"), QStringLiteral("Overlapping form of sdev, adev and hdev.")},
        {QStringLiteral("remove-drift"), QStringLiteral("Takes the best parabola off the phase first.")},
        {QStringLiteral("points-per-tau"),
            QStringLiteral("Only the newest N * tau samples go into one tau; 0 for all. Default: 1000000."),
            QStringLiteral("N")},
        {QStringLiteral("skip-bad-lines"),
            QStringLiteral("Reports lines that do not fit, and data missing from recordings, and goes on "
                           "without them.")},
        {QStringLiteral("csv"), QStringLiteral("Comma separated table.")},
        {QStringLiteral("json"), QStringLiteral("JSON with one object for each file.")},
        {QStringLiteral("out"), QStringLiteral("Writes the table and its graphs to this folder too."),
            QStringLiteral("DIR")},
        {QStringLiteral("plot"), QStringLiteral("Kind of graph file: png, svg or pdf. Default: png."),
            QStringLiteral("TYPE")},
    });
}

double readInterval(const QCommandLineParser& parser)
{
    const double interval = numberOf(parser, "interval", 1.0);
    if (interval <= 0.0)
        throw Misuse{QStringLiteral("--interval must be above 0")};
    return interval;
}

double readMultiplier(const QCommandLineParser& parser)
{
    const double multiplier = numberOf(parser, "multiplier", 1.0);
    if (multiplier == 0.0)
        throw Misuse{QStringLiteral("--multiplier must not be 0")};
    return multiplier;
}

qint32 readPerSecond(const QCommandLineParser& parser, qint32 byDefault)
{
    const std::optional<QString> text = valueOf(parser, "points-per-tau");
    if (!text)
        return byDefault;
    bool ok = false;
    const qint32 value = text->toInt(&ok);
    if (!ok || value < 0)
        throw Misuse{
            QStringLiteral("--points-per-tau: \"%1\" is not a whole number from 0 to 2147483647").arg(*text)};
    return value;
}

QVector<QDateTime> readStarts(const QCommandLineParser& parser, int files)
{
    QVector<QDateTime> starts;
    if (!valueOf(parser, "start"))
        return starts;
    for (const QString& text : parser.values(QStringLiteral("start"))) {
        const QDateTime start = QDateTime::fromString(text, startPattern);
        if (!start.isValid())
            throw Misuse{
                QStringLiteral("--start: \"%1\" is not a date and time as \"%2\"").arg(text, startPattern)};
        starts << start;
    }
    if (starts.size() > 1 && starts.size() != files)
        throw Misuse{QStringLiteral("--start stands once for all files, or once for each of them: %1 for %2")
                         .arg(starts.size())
                         .arg(files)};
    return starts;
}

QString faultText(TemplateFault fault)
{
    switch (fault) {
    case TemplateFault::TooManyVariables:
        return QStringLiteral("more than %1 values").arg(FormatTemplate::maxVariables);
    case TemplateFault::TooManySkipped:
        return QStringLiteral("more than %1 skipped fields").arg(FormatTemplate::maxSkipped);
    case TemplateFault::Brackets:
        return QStringLiteral("a bracket without its counterpart, or within another field");
    case TemplateFault::Literal:
        return QStringLiteral("outside brackets only blanks, digits, capitals from A to X and "
                              "!\"#$%&'()*+,-./:;=>?@ can stand");
    case TemplateFault::NoVariable:
    case TemplateFault::None:
        break;
    }
    return QStringLiteral("no value such as [x]");
}

QString readTemplate(const QCommandLineParser& parser)
{
    const QString format = valueOf(parser, "format").value_or(QString());
    if (format.isEmpty())
        return format;
    const TemplateFault fault = compileTemplate(format).fault;
    if (fault != TemplateFault::None)
        throw Misuse{QStringLiteral("--format: \"%1\" is not a template: %2").arg(format, faultText(fault))};
    if (dataNames(format).isEmpty())
        throw Misuse{QStringLiteral("--format: \"%1\" has no value column such as [x]").arg(format)};
    return format;
}

Statistic statisticNamed(const QString& name)
{
    for (const StatisticName& known : statisticNames) {
        if (name == QLatin1String(known.name))
            return known.statistic;
    }
    throw Misuse{
        QStringLiteral("--stat: unknown statistic \"%1\"; known are sdev, adev, hdev, mdev, pdev, tdev, mtie")
            .arg(name)};
}

QVector<Statistic> readStatistics(const QCommandLineParser& parser)
{
    QVector<Statistic> statistics;
    const QString list = valueOf(parser, "stat")
        ? parser.values(QStringLiteral("stat")).join(QLatin1Char(','))
        : QStringLiteral("adev");
    for (const QString& name : list.split(QLatin1Char(','))) {
        const Statistic statistic = statisticNamed(name.trimmed().toLower());
        if (!statistics.contains(statistic))
            statistics.append(statistic);
    }
    return statistics;
}

TableStyle readStyle(const QCommandLineParser& parser)
{
    const bool csv = parser.isSet(QStringLiteral("csv"));
    const bool json = parser.isSet(QStringLiteral("json"));
    if (csv && json)
        throw Misuse{QStringLiteral("--csv and --json exclude each other")};
    return csv ? TableStyle::Csv : json ? TableStyle::Json : TableStyle::Aligned;
}

void readOutput(const QCommandLineParser& parser, CliOptions& options)
{
    options.outputFolder = valueOf(parser, "out").value_or(QString());
    const std::optional<QString> type = valueOf(parser, "plot");
    if (type && options.outputFolder.isEmpty())
        throw Misuse{QStringLiteral("--plot needs --out")};
    options.plotType = type.value_or(QStringLiteral("png")).toLower();
    if (!QStringList({QStringLiteral("png"), QStringLiteral("svg"), QStringLiteral("pdf")})
             .contains(options.plotType))
        throw Misuse{QStringLiteral("--plot: \"%1\" is none of png, svg, pdf").arg(*type)};
}

CliOptions readOptions(const QCommandLineParser& parser, qint32 perSecond)
{
    CliOptions options;
    readRecordingOptions(parser, options);
    options.files = parser.positionalArguments();
    if (options.files.isEmpty() && !options.isRecording())
        throw Misuse{QStringLiteral("no file given")};
    if (options.files.contains(QString()))
        throw Misuse{QStringLiteral("an empty file name")};
    options.format = readTemplate(parser);
    options.interval = readInterval(parser);
    options.starts = readStarts(parser, options.files.size());
    options.multiplier = readMultiplier(parser);
    options.frequency = parser.isSet(QStringLiteral("frequency"));
    options.statistics = readStatistics(parser);
    options.overlap = parser.isSet(QStringLiteral("overlap"));
    options.removeDrift = parser.isSet(QStringLiteral("remove-drift"));
    options.skipBadLines = parser.isSet(QStringLiteral("skip-bad-lines"));
    options.perSecond = readPerSecond(parser, perSecond);
    options.style = readStyle(parser);
    readOutput(parser, options);
    readCommands(parser, options);
    return options;
}

} // namespace

CliCommand readCommandLine(const QStringList& arguments, qint32 perSecond)
{
    QCommandLineParser parser;
    addOptions(parser);
    addCommands(parser);
    addRecordingOptions(parser);
    CliCommand command;
    if (!parser.parse(arguments)) {
        command.text = parser.errorText();
    } else if (parser.isSet(QStringLiteral("help"))) {
        command.kind = CliCommand::Kind::Help;
        command.text = parser.helpText() + QString::fromLatin1(example);
    } else if (parser.isSet(QStringLiteral("version"))) {
        command.kind = CliCommand::Kind::Version;
    } else {
        try {
            command.options = readOptions(parser, perSecond);
            command.kind = CliCommand::Kind::Run;
        } catch (const Misuse& misuse) {
            command.text = misuse.text;
        }
    }
    return command;
}

QString statisticKey(Statistic statistic, bool overlap)
{
    const bool twoForms =
        statistic == Statistic::Sdev || statistic == Statistic::Adev || statistic == Statistic::Hdev;
    const QString name = statisticHead(statistic, true).toLower();
    return overlap && twoForms ? QLatin1Char('o') + name : name;
}

bool anyLimit(const CliOptions& options)
{
    constexpr int phase = 0; // data type of every record that is read
    return limitFilters(options.limits.frequency, phase) || limitFilters(options.limits.change, phase);
}
