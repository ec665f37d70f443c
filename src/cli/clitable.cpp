#include "cli/clitable.h"

#include "cli/cliseries.h"
#include "cli/clitexts.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStringList>

#include <cstddef>
#include <map>

namespace {

struct Row {
    double tau;
    std::vector<const double*> values; ///< for each column of each file; null where there is none
};

/// The rows by averaging factor; all files have the same interval.
std::map<qint64, Row> mergedRows(const QVector<CliResult>& results)
{
    size_t width = 0;
    for (const CliResult& result : results)
        width += size_t(result.columns.size());
    std::map<qint64, Row> rows;
    size_t place = 0;
    for (const CliResult& result : results) {
        for (size_t k = 0; k < result.scale.size(); ++k) {
            Row& row = rows[result.scale.factor[k]];
            row.tau = result.scale.tau[k];
            row.values.resize(width, nullptr);
            for (int c = 0; c < result.columns.size(); ++c) {
                const std::vector<double>& values = result.columns[c].values;
                if (k < values.size())
                    row.values[place + size_t(c)] = &values[k];
            }
        }
        place += size_t(result.columns.size());
    }
    return rows;
}

} // namespace

QByteArray alignedTable(const QVector<CliResult>& results, const CliOptions& options)
{
    const bool several = results.size() > 1;
    QString text;
    QStringList head{QStringLiteral("tau, s")};
    for (int i = 0; i < results.size(); ++i) {
        text += fileLine(results[i], i + 1, several);
        for (const CliColumn& column : results[i].columns) {
            const QString name = statisticKey(column.statistic, options.overlap).toUpper();
            head << (several ? QStringLiteral("%1 %2").arg(name).arg(i + 1) : name);
        }
    }
    QVector<QStringList> lines{head};
    for (const auto& entry : mergedRows(results)) {
        QStringList cells{QString::number(entry.second.tau, 'g', 10)};
        for (const double* value : entry.second.values)
            cells << (value ? QString::number(*value, 'e', 6) : noValue);
        lines << cells;
    }
    return (text + aligned(lines)).toUtf8();
}

QByteArray csvTable(const QVector<CliResult>& results)
{
    QStringList head{QStringLiteral("m"), QStringLiteral("tau")};
    for (const CliResult& result : results) {
        for (const CliColumn& column : result.columns) {
            // The names that --stat takes, with and without overlap, so that a script finds its column.
            const QString key = statisticKey(column.statistic, false);
            head << quoted(results.size() > 1 ? key + QLatin1Char(':') + result.title : key);
        }
    }
    QString text = head.join(QLatin1Char(',')) + QLatin1Char('\n');
    for (const auto& entry : mergedRows(results)) {
        QStringList cells{QString::number(entry.first), exact(entry.second.tau)};
        for (const double* value : entry.second.values)
            cells << (value ? exact(*value) : QString());
        text += cells.join(QLatin1Char(',')) + QLatin1Char('\n');
    }
    return text.toUtf8();
}

QByteArray jsonTable(const QVector<CliResult>& results, const CliOptions& options)
{
    QJsonArray files;
    for (const CliResult& result : results) {
        QJsonArray factors;
        QJsonArray taus;
        for (size_t k = 0; k < result.scale.size(); ++k) {
            factors.append(result.scale.factor[k]);
            taus.append(result.scale.tau[k]);
        }
        QJsonObject columns{{QStringLiteral("m"), factors}, {QStringLiteral("tau"), taus}};
        for (const CliColumn& column : result.columns) {
            QJsonArray values;
            for (const double value : column.values)
                values.append(value);
            columns.insert(statisticKey(column.statistic, false), values);
        }
        QJsonObject file = parameters(result, options);
        file.insert(QStringLiteral("columns"), columns);
        files.append(file);
    }
    return QJsonDocument(files).toJson();
}

QByteArray tableText(const QVector<CliResult>& results, const CliOptions& options)
{
    if (options.content != Content::Stability)
        return seriesText(results, options);
    switch (options.style) {
    case TableStyle::Csv:
        return csvTable(results);
    case TableStyle::Json:
        return jsonTable(results, options);
    case TableStyle::Aligned:
        break;
    }
    return alignedTable(results, options);
}
