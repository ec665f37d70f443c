#include "plot/core/exporttable.h"

#include "record/calendar.h"

#include <QCoreApplication>
#include <QMap>

#include <cmath>

namespace {

constexpr int leftWidth = 20;
constexpr int spectrumWidth = 30;
constexpr int barWidth = 20;

QString number(double value, char format, int digits, int width)
{
    return QString::number(value, format, digits).rightJustified(width);
}

/// The width comes last so that a title with a bar of its own is cut like any other text.
QString cell(const QString& text, int width)
{
    return text.rightJustified(width, ' ', true) + '|';
}

QString leftHead(ExportKind kind, bool english)
{
    switch (kind) {
    case ExportKind::Tau:
        return english ? QStringLiteral("tau, s|") : QStringLiteral("tau, c|");
    case ExportKind::Hour:
        return english ? QStringLiteral("      Hour|            Date, time|    MJD|")
                       : QStringLiteral("      Часы|           Дата, время|    MJD|"); // verbatim
    case ExportKind::Day:
        return english ? QStringLiteral("       Day|        Date|    MJD|")
                       : QStringLiteral("     Сутки|        Дата|    MJD|"); // verbatim
    case ExportKind::Spectrum:
        break;
    }
    return QCoreApplication::translate("ExportTable", "Название");
}

/// X as a whole number; 0 for a value that no whole number holds.
qint64 whole(double value)
{
    return std::isfinite(value) && std::fabs(value) < 1e15 ? static_cast<qint64>(value) : 0;
}

QString hourCells(double x, const QDateTime& startTime)
{
    QDateTime hour = startTime;
    hour.setTime(QTime(startTime.time().hour(), 0));
    const QDateTime when = hour.addSecs(whole(std::floor(x * 3600.0 + 0.5)));
    const QDate date = when.date();
    const long mjd = date.isValid() ? DateToMjd(date.year(), date.month(), date.day()) : 0;
    return when.toString(QStringLiteral("dd.MM.yyyy hh:mm:ss")).rightJustified(22) + '|'
        + QString::number(mjd).rightJustified(7) + '|';
}

QString dayCells(double x)
{
    int year = 0;
    int month = 0;
    int day = 0;
    MjdToDate(static_cast<long>(whole(x)), &year, &month, &day);
    return QDate(year, month, day).toString(QStringLiteral("dd.MM.yyyy")).rightJustified(12) + '|'
        + number(x, 'g', 6, 7) + '|';
}

QString leftCell(const ExportRequest& request, const QVector<double>& x, int row)
{
    if (request.kind == ExportKind::Hour)
        return number(x[row] - x[0], 'f', 0, 10) + '|' + hourCells(x[row], request.startTime);
    if (request.kind == ExportKind::Day)
        return number(x[row] - x[0], 'f', 0, 10) + '|' + dayCells(x[row]);
    return number(x[row], 'f', 0, 10) + '|';
}

int valueWidth(const ExportColumn& column)
{
    return std::max(20, column.title.size() + 3);
}

QString headCell(const ExportColumn& column, bool withBars)
{
    const int width = valueWidth(column);
    if (!withBars)
        return cell(column.title, width);
    return cell(
        column.title.rightJustified(width) + QStringLiteral("                 Min                 Max"),
        width + 2 * barWidth);
}

QString valueCell(const ExportColumn& column, int row, bool withBars)
{
    const int width = valueWidth(column);
    const int full = withBars ? width + 2 * barWidth : width;
    if (row >= column.y.size())
        return cell(QStringLiteral("---|"), full);
    QString text = number(column.y[row], 'g', 8, width);
    if (withBars && row < column.low.size() && row < column.high.size())
        text += number(column.low[row], 'g', 8, barWidth) + number(column.high[row], 'g', 8, barWidth);
    return cell(text, full);
}

QStringList plainTable(const ExportRequest& request)
{
    const ExportColumn* longest = &request.columns.first();
    for (const ExportColumn& column : request.columns) {
        if (column.x.size() > longest->x.size())
            longest = &column;
    }
    QString head = leftHead(request.kind, request.english).rightJustified(leftWidth);
    for (const ExportColumn& column : request.columns)
        head += headCell(column, request.withBars);
    QStringList lines(head);
    for (int row = 0; row < longest->x.size(); ++row) {
        QString line = leftCell(request, longest->x, row).rightJustified(leftWidth);
        for (const ExportColumn& column : request.columns)
            line += valueCell(column, row, request.withBars);
        lines << line;
    }
    return lines;
}

QStringList spectrumTable(const ExportRequest& request)
{
    QVector<QMap<qint64, double>> columns;
    QMap<qint64, bool> rows;
    QString head = leftHead(request.kind, request.english).rightJustified(leftWidth);
    for (const ExportColumn& column : request.columns) {
        columns << thinnedSpectrum(column.x, column.y);
        for (auto it = columns.last().cbegin(); it != columns.last().cend(); ++it)
            rows[it.key()] = true;
        head += cell(column.title, spectrumWidth);
    }
    QStringList lines(head);
    for (auto row = rows.cbegin(); row != rows.cend(); ++row) {
        QString line = number(double(row.key()), 'f', 0, leftWidth);
        for (const QMap<qint64, double>& column : columns) {
            const auto found = column.constFind(row.key());
            line += cell(found == column.cend() ? QStringLiteral("---") : QString::number(*found, 'g', 8),
                spectrumWidth);
        }
        lines << line;
    }
    return lines;
}

} // namespace

QVector<qint64> spectrumKeepers(int n)
{
    QVector<qint64> keepers{1};
    if (n < 1)
        return keepers;
    const double decades = std::floor(std::log10(n / 3.0));
    const int limit = static_cast<int>(decades * 3.0 + 2.0) * 2 - 1;
    qint64 power = 1;
    for (int counter = 1; counter < limit; counter += 3, power *= 10) {
        if (power > 1)
            keepers << power;
        keepers << 2 * power << 5 * power;
    }
    return keepers;
}

QMap<qint64, double> thinnedSpectrum(const QVector<double>& x, const QVector<double>& y)
{
    const QVector<qint64> keepers = spectrumKeepers(x.size());
    QMap<qint64, QPair<double, int>> sums;
    for (int i = 0; i < x.size() && i < y.size(); ++i) {
        const qint64 at = whole(x[i]);
        if (!keepers.contains(at))
            continue;
        sums[at].first += y[i];
        ++sums[at].second;
    }
    QMap<qint64, double> means;
    for (auto it = sums.cbegin(); it != sums.cend(); ++it)
        means[it.key()] = it->first / it->second;
    return means;
}

QStringList exportTable(const ExportRequest& request)
{
    if (request.columns.isEmpty())
        return {};
    return request.kind == ExportKind::Spectrum ? spectrumTable(request) : plainTable(request);
}
