#include "cli/clicommands.h"

#include "cli/clioptions.h"
#include "cli/clirecord.h"
#include "cli/clivalues.h"
#include "load/core/formattemplate.h"
#include "table/core/crosspair.h"

#include <QCommandLineParser>

#include <algorithm>

namespace {

struct PairingName {
    const char* option;
    Pairing pairing;
};

constexpr PairingName pairings[] = {
    {"diff", Pairing::Difference},
    {"merge", Pairing::Merge},
    {"cross", Pairing::Cross},
    {"three-corner", Pairing::ThreeCorner},
};

struct ModeName {
    const char* name;
    MergeMode mode;
};

constexpr ModeName mergeModes[] = {
    {"phase", MergeMode::StitchPhase},
    {"frequency", MergeMode::StitchFrequency},
    {"gap", MergeMode::KeepGap},
};

struct GraphName {
    const char* name;
    Graph graph;
};

constexpr GraphName graphNames[] = {
    {"phase", Graph::Phase},
    {"freq", Graph::Frequency},
    {"spectrum", Graph::Spectrum},
    {"stability", Graph::Stability},
};

std::optional<double> readLimit(const QCommandLineParser& parser, const char* name)
{
    const std::optional<QString> text = valueOf(parser, name);
    if (!text)
        return std::nullopt;
    const std::optional<double> limit = limitFromText(*text);
    if (!limit)
        throw Misuse{QStringLiteral("--%1: \"%2\" is neither a number above 0 nor 0 for no limit")
                         .arg(QString::fromLatin1(name), *text)};
    return limit;
}

void readLimits(const QCommandLineParser& parser, CliOptions& options)
{
    options.limits.frequency = readLimit(parser, "limit-y");
    options.limits.change = readLimit(parser, "limit-vary");
    const std::optional<QString> seed = valueOf(parser, "seed");
    if (!seed)
        return;
    if (!options.limits.frequency && !options.limits.change)
        throw Misuse{QStringLiteral("--seed needs --limit-y or --limit-vary")};
    bool ok = false;
    options.seed = seed->toUInt(&ok);
    if (!ok)
        throw Misuse{QStringLiteral("--seed: \"%1\" is not a whole number from 0 to 4294967295").arg(*seed)};
}

void readPairing(const QCommandLineParser& parser, CliOptions& options)
{
    QStringList given;
    for (const PairingName& known : pairings) {
        if (!isGiven(parser, known.option))
            continue;
        given << QStringLiteral("--") + QString::fromLatin1(known.option);
        options.pairing = known.pairing;
    }
    if (given.size() > 1)
        throw Misuse{given.join(QStringLiteral(" and ")) + QStringLiteral(" exclude each other")};
}

void readMerge(const QCommandLineParser& parser, CliOptions& options)
{
    options.shiftPhase = isGiven(parser, "shift-phase");
    if (const std::optional<QString> text = valueOf(parser, "merge")) {
        const auto* mode = std::find_if(std::begin(mergeModes), std::end(mergeModes),
            [&](const ModeName& known) { return *text == QLatin1String(known.name); });
        if (mode == std::end(mergeModes))
            throw Misuse{QStringLiteral("--merge: \"%1\" is none of phase, frequency, gap").arg(*text)};
        options.mergeMode = mode->mode;
    }
    if (options.shiftPhase && (options.pairing != Pairing::Merge || options.mergeMode != MergeMode::KeepGap))
        throw Misuse{QStringLiteral("--shift-phase needs --merge gap")};
}

/// "measured-reference". A name may hold a hyphen itself where " - " divides the two.
SignalPair readPair(const QString& text)
{
    const QString divider =
        text.contains(QStringLiteral(" - ")) ? QStringLiteral(" - ") : QStringLiteral("-");
    const QStringList names = text.split(divider);
    const SignalPair pair{names.first().trimmed(), names.last().trimmed()};
    if (names.size() != 2 || pair.measured.isEmpty() || pair.reference.isEmpty())
        throw Misuse{
            QStringLiteral("--signals: \"%1\" is not a pair as \"A-B\", measured and reference").arg(text)};
    return pair;
}

void readSignals(const QCommandLineParser& parser, CliOptions& options)
{
    const std::optional<QString> text = valueOf(parser, "signals");
    if (!text) {
        if (options.pairing == Pairing::ThreeCorner && !options.isRecording())
            throw Misuse{QStringLiteral(
                "--three-corner needs --signals, as \"A-B,A-C\": text files do not tell the signals")};
        return;
    }
    if (options.pairing == Pairing::None)
        throw Misuse{QStringLiteral("--signals needs --diff, --merge, --cross or --three-corner")};
    for (const QString& pair : text->split(QLatin1Char(',')))
        options.signalPairs << readPair(pair);
}

/// Cross processing makes no record, and shows the others as they were read.
void checkSaving(const CliOptions& options)
{
    if (options.isCross() && !(options.saveRecording.isEmpty() && options.saveAscii.isEmpty()))
        throw Misuse{QStringLiteral("--save-recording and --save-ascii do not go with --cross and "
                                    "--three-corner, which make no record")};
}

void readContent(const QCommandLineParser& parser, CliOptions& options)
{
    const bool spectrum = isGiven(parser, "spectrum");
    const bool minmax = isGiven(parser, "minmax");
    if (spectrum && minmax)
        throw Misuse{QStringLiteral("--spectrum and --minmax exclude each other")};
    if (minmax && options.isCross())
        throw Misuse{
            QStringLiteral("--minmax does not go with --cross and --three-corner, which make no record")};
    options.content = spectrum ? Content::Spectrum : minmax ? Content::MinMax : Content::Stability;
}

Graph graphOf(Content content)
{
    return content == Content::Spectrum ? Graph::Spectrum
        : content == Content::MinMax    ? Graph::Phase
                                        : Graph::Stability;
}

Graph graphNamed(const QString& name)
{
    for (const GraphName& known : graphNames) {
        if (name == QLatin1String(known.name))
            return known.graph;
    }
    throw Misuse{QStringLiteral("--graph: unknown graph \"%1\"; known are phase, freq, spectrum, stability")
                     .arg(name)};
}

/// The graphs asked for, else the one of what the table holds.
void readGraphs(const QCommandLineParser& parser, CliOptions& options)
{
    const bool given = valueOf(parser, "graph").has_value();
    if (given && options.outputFolder.isEmpty())
        throw Misuse{QStringLiteral("--graph needs --out")};
    if (!given && !options.outputFolder.isEmpty())
        options.graphs << graphOf(options.content);
    const QString list = parser.values(QStringLiteral("graph")).join(QLatin1Char(','));
    for (const QString& name : given ? list.split(QLatin1Char(',')) : QStringList()) {
        const Graph graph = graphNamed(name.trimmed().toLower());
        if (!options.graphs.contains(graph))
            options.graphs << graph;
    }
    options.freqInterval = numberOf(parser, "freq-interval", options.freqInterval);
    if (isGiven(parser, "freq-interval") && !options.graphs.contains(Graph::Frequency))
        throw Misuse{QStringLiteral("--freq-interval needs --graph freq")};
    if (options.freqInterval <= 0.0)
        throw Misuse{QStringLiteral("--freq-interval must be above 0")};
}

/// Refuses options of what is neither put out nor drawn.
void checkContent(const QCommandLineParser& parser, CliOptions& options)
{
    for (const char* name : {"stat", "overlap", "points-per-tau"}) {
        if (isGiven(parser, name) && !options.needsStability())
            throw Misuse{
                QStringLiteral("--%1 does not go with --spectrum and --minmax, unless --graph stability asks "
                               "for it")
                    .arg(QString::fromLatin1(name))};
    }
    options.carrier = numberOf(parser, "carrier", options.carrier);
    if (isGiven(parser, "carrier") && !options.needsSpectrum())
        throw Misuse{QStringLiteral("--carrier needs --spectrum or --graph spectrum")};
    if (options.carrier <= 0.0)
        throw Misuse{QStringLiteral("--carrier must be above 0")};
}

void checkStatistics(const QCommandLineParser& parser, const CliOptions& options)
{
    if (!options.isCross())
        return;
    for (const Statistic statistic : options.statistics) {
        if (!crossKernel(statistic, options.overlap))
            throw Misuse{QStringLiteral("--cross and --three-corner have sdev, adev and hdev only, not %1")
                             .arg(statisticKey(statistic, false))};
    }
    if (isGiven(parser, "points-per-tau"))
        throw Misuse{QStringLiteral("--points-per-tau does not go with --cross and --three-corner")};
}

int recordCount(const CliOptions& options)
{
    int count = 0;
    for (const QString& file : options.files)
        count += dataNames(templateOf(file, options)).size();
    return count;
}

} // namespace

void addCommands(QCommandLineParser& parser)
{
    parser.addOptions({
        {QStringLiteral("limit-y"),
            QStringLiteral("Replaces samples whose frequency lies further from the median of the day. 0, and "
                           "for phase 1, is no limit."),
            QStringLiteral("Y")},
        {QStringLiteral("limit-vary"),
            QStringLiteral("The same for the change of frequency from sample to sample; it comes first."),
            QStringLiteral("DY")},
        {QStringLiteral("seed"),
            QStringLiteral("Seed of the noise that stands for replaced samples. Default: 1."),
            QStringLiteral("N")},
        {QStringLiteral("diff"), QStringLiteral("Takes the first of two records off the second.")},
        {QStringLiteral("merge"),
            QStringLiteral(
                "Joins two records. phase: at once, sample to sample; frequency: times stay, the "
                "second goes on with value and frequency of the first; gap: times and values stay."),
            QStringLiteral("MODE")},
        {QStringLiteral("shift-phase"), QStringLiteral("Lets --merge gap close a jump in value.")},
        {QStringLiteral("cross"), QStringLiteral("Cross deviations of two records with a common signal.")},
        {QStringLiteral("three-corner"),
            QStringLiteral("Stability of each of three clocks, from two or three records of them.")},
        {QStringLiteral("signals"),
            QStringLiteral("Signals of the records in order, each measured-reference, as \"A-B,A-C\"."),
            QStringLiteral("LIST")},
        {QStringLiteral("spectrum"),
            QStringLiteral("Puts out spectra of phase and frequency instead of the stability.")},
        {QStringLiteral("carrier"), QStringLiteral("Carrier of the spectra. Default: 5."),
            QStringLiteral("MHZ")},
        {QStringLiteral("minmax"),
            QStringLiteral("Puts out the samples, reduced to 5000 pairs of minimum and maximum.")},
        {QStringLiteral("graph"),
            QStringLiteral("Graphs for --out, by commas: phase, freq, spectrum, stability. Default: that of "
                           "the table."),
            QStringLiteral("LIST")},
        {QStringLiteral("freq-interval"),
            QStringLiteral("Seconds over which --graph freq takes each frequency. Default: 1, or the "
                           "interval of the samples."),
            QStringLiteral("S")},
    });
}

QString recordsFault(const CliOptions& options, int records)
{
    const bool fits = options.pairing == Pairing::None || records == 2
        || (options.pairing == Pairing::ThreeCorner && records == 3);
    for (const PairingName& known : pairings) {
        if (!fits && known.pairing == options.pairing)
            return QStringLiteral("--%1 takes two%2 records, %3: here are %4")
                .arg(QString::fromLatin1(known.option),
                    QString::fromLatin1(known.pairing == Pairing::ThreeCorner ? " or three" : ""),
                    QString::fromLatin1(
                        options.isRecording() ? "stretches of recording" : "files or value columns"),
                    QString::number(records));
    }
    const int pairs = options.signalPairs.size();
    if (pairs != 0 && pairs != records)
        return QStringLiteral("--signals: %1 pairs for %2 records").arg(pairs).arg(records);
    if (!options.saveAscii.isEmpty() && options.pairing == Pairing::None && records != 1)
        return QStringLiteral("--save-ascii takes one record: here are %1").arg(records);
    return {};
}

void readCommands(const QCommandLineParser& parser, CliOptions& options)
{
    readLimits(parser, options);
    readPairing(parser, options);
    readMerge(parser, options);
    readContent(parser, options);
    readGraphs(parser, options);
    checkContent(parser, options);
    checkStatistics(parser, options);
    checkSaving(options);
    readSignals(parser, options);
    // How many stretches a recording has is told by its files.
    if (options.isRecording() || (options.pairing == Pairing::None && options.saveAscii.isEmpty()))
        return;
    const QString fault = recordsFault(options, recordCount(options));
    if (!fault.isEmpty())
        throw Misuse{fault};
}
