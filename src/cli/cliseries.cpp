#include "cli/cliseries.h"

#include "cli/clitexts.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStringList>

#include <algorithm>
#include <functional>

namespace {

/// All columns in order, each with the title of its result behind the name when there are several results.
QStringList heads(const QVector<CliResult>& results, const std::function<QString(int)>& title)
{
    QStringList heads;
    for (int i = 0; i < results.size(); ++i) {
        for (const CliSeries& series : results[i].series)
            heads << (results.size() > 1 ? series.name + title(i) : series.name);
    }
    return heads;
}

size_t longest(const QVector<CliResult>& results)
{
    size_t length = 0;
    for (const CliResult& result : results) {
        for (const CliSeries& series : result.series)
            length = std::max(length, series.values.size());
    }
    return length;
}

/// The cells of line `k`; `text` writes a value.
QStringList cells(const QVector<CliResult>& results, size_t k, const QString& nothing,
    const std::function<QString(const CliSeries&, double)>& text)
{
    QStringList cells;
    for (const CliResult& result : results) {
        for (const CliSeries& series : result.series)
            cells << (k < series.values.size() ? text(series, series.values[k]) : nothing);
    }
    return cells;
}

QByteArray alignedSeries(const QVector<CliResult>& results)
{
    QString text;
    for (int i = 0; i < results.size(); ++i)
        text += fileLine(results[i], i + 1, results.size() > 1);
    QVector<QStringList> lines{heads(results, [](int i) { return QStringLiteral(" %1").arg(i + 1); })};
    const size_t length = longest(results);
    for (size_t k = 0; k < length; ++k) {
        lines << cells(results, k, noValue, [](const CliSeries& series, double value) {
            return QString::number(value, series.format, series.digits);
        });
    }
    return (text + aligned(lines)).toUtf8();
}

QByteArray csvSeries(const QVector<CliResult>& results)
{
    QStringList names;
    for (const QString& head : heads(results, [&](int i) { return QLatin1Char(':') + results[i].title; }))
        names << quoted(head);
    QString text = names.join(QLatin1Char(',')) + QLatin1Char('\n');
    const size_t length = longest(results);
    for (size_t k = 0; k < length; ++k) {
        text += cells(results, k, QString(), [](const CliSeries&, double value) { return exact(value); })
                    .join(QLatin1Char(','))
            + QLatin1Char('\n');
    }
    return text.toUtf8();
}

QByteArray jsonSeries(const QVector<CliResult>& results, const CliOptions& options)
{
    QJsonArray files;
    for (const CliResult& result : results) {
        QJsonObject columns;
        for (const CliSeries& series : result.series) {
            QJsonArray values;
            for (const double value : series.values)
                values.append(value);
            columns.insert(series.name, values);
        }
        QJsonObject file = parameters(result, options);
        file.insert(QStringLiteral("columns"), columns);
        files.append(file);
    }
    return QJsonDocument(files).toJson();
}

} // namespace

QByteArray seriesText(const QVector<CliResult>& results, const CliOptions& options)
{
    switch (options.style) {
    case TableStyle::Csv:
        return csvSeries(results);
    case TableStyle::Json:
        return jsonSeries(results, options);
    case TableStyle::Aligned:
        break;
    }
    return alignedSeries(results);
}
