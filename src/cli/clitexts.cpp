#include "cli/clitexts.h"

#include <QJsonArray>

#include <algorithm>
#include <vector>

namespace {

const QString dateTimePattern = QStringLiteral("yyyy-MM-dd hh:mm:ss");

void addLimits(QJsonObject& object, const CliOptions& options)
{
    if (options.limits.frequency)
        object.insert(QStringLiteral("limitY"), *options.limits.frequency);
    if (options.limits.change)
        object.insert(QStringLiteral("limitVary"), *options.limits.change);
    if (anyLimit(options))
        object.insert(QStringLiteral("seed"), qint64(options.seed));
}

void addSource(QJsonObject& object, const CliSource& source, const CliOptions& options)
{
    QJsonArray badLines;
    for (const qint64 line : source.badLines)
        badLines.append(line);
    if (source.channel > 0) {
        object.insert(QStringLiteral("channel"), source.channel);
        object.insert(QStringLiteral("kdec"), options.recording.kdec);
    } else {
        object.insert(QStringLiteral("format"), source.format);
        object.insert(QStringLiteral("badLines"), badLines);
    }
    if (anyLimit(options))
        object.insert(QStringLiteral("replaced"), source.replaced);
}

QString operation(const CliOptions& options)
{
    switch (options.pairing) {
    case Pairing::Difference:
        return QStringLiteral("diff");
    case Pairing::Merge:
        return QStringLiteral("merge ")
            + (options.mergeMode == MergeMode::StitchPhase            ? QStringLiteral("phase")
                    : options.mergeMode == MergeMode::StitchFrequency ? QStringLiteral("frequency")
                                                                      : QStringLiteral("gap"));
    case Pairing::Cross:
        return QStringLiteral("cross");
    case Pairing::ThreeCorner:
        return QStringLiteral("three-corner");
    case Pairing::None:
        break;
    }
    return {};
}

} // namespace

QString exact(double value)
{
    return QString::number(value, 'g', 17);
}

QString fileLine(const CliResult& result, int number, bool several)
{
    QString name = several ? QString::number(number) + QStringLiteral(": ") + result.title : result.title;
    // The head of a file is one line, whatever its name.
    std::replace_if(
        name.begin(), name.end(), [](QChar c) { return c.category() == QChar::Other_Control; },
        QLatin1Char('?'));
    return QStringLiteral("# %1, %2 samples, interval %3 s, %4 - %5\n")
        .arg(name, QString::number(result.samples), QString::number(result.interval, 'g', 10),
            result.start.toString(dateTimePattern), result.stop.toString(dateTimePattern));
}

QString quoted(const QString& cell)
{
    if (!cell.contains(QLatin1Char(',')) && !cell.contains(QLatin1Char('"'))
        && !cell.contains(QLatin1Char('\n')) && !cell.contains(QLatin1Char('\r')))
        return cell;
    return QLatin1Char('"') + QString(cell).replace(QLatin1Char('"'), QStringLiteral("\"\""))
        + QLatin1Char('"');
}

QJsonObject parameters(const CliResult& result, const CliOptions& options)
{
    QJsonObject object{
        {QStringLiteral("file"), result.title},
        {QStringLiteral("start"), result.start.toString(dateTimePattern)},
        {QStringLiteral("stop"), result.stop.toString(dateTimePattern)},
        {QStringLiteral("interval"), result.interval},
        {QStringLiteral("overlap"), options.overlap},
        {QStringLiteral("removeDrift"), options.removeDrift},
        {QStringLiteral("pointsPerTau"), options.perSecond},
        {QStringLiteral("samples"), result.samples},
    };
    if (options.isRecording()) {
        object.insert(QStringLiteral("recording"), options.recording.directory);
    } else {
        object.insert(QStringLiteral("multiplier"), options.multiplier);
        object.insert(QStringLiteral("frequency"), options.frequency);
    }
    addLimits(object, options);
    if (options.content == Content::Spectrum)
        object.insert(QStringLiteral("carrier"), options.carrier);
    if (options.pairing == Pairing::None) {
        for (const CliSource& source : result.sources)
            addSource(object, source, options);
        return object;
    }
    object.insert(QStringLiteral("operation"), operation(options));
    QJsonArray sources;
    for (const CliSource& source : result.sources) {
        QJsonObject one{{QStringLiteral("file"), source.file}, {QStringLiteral("samples"), source.samples}};
        addSource(one, source, options);
        if (!source.signalPair.measured.isEmpty()) {
            one.insert(QStringLiteral("measured"), source.signalPair.measured);
            one.insert(QStringLiteral("reference"), source.signalPair.reference);
        }
        sources.append(one);
    }
    object.insert(QStringLiteral("sources"), sources);
    return object;
}

QString aligned(const QVector<QStringList>& lines)
{
    std::vector<int> widths(size_t(lines.constFirst().size()), 0);
    for (const QStringList& line : lines) {
        for (int c = 0; c < line.size(); ++c)
            widths[size_t(c)] = std::max(widths[size_t(c)], line[c].size());
    }
    QString text;
    for (const QStringList& line : lines) {
        QStringList cells;
        for (int c = 0; c < line.size(); ++c)
            cells << line[c].rightJustified(widths[size_t(c)]);
        text += cells.join(QStringLiteral("  ")) + QLatin1Char('\n');
    }
    return text;
}
