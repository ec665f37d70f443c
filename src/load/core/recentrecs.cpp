#include "load/core/recentrecs.h"

#include "load/core/configvalues.h"
#include "record/record.h"

#include <QLocale>

#include <algorithm>
#include <iterator>

RecentRecs RecRecs[maxRecentRecs];
qint32 nextRecRecsIndex = 0;
qint32 NumRecentRecs = 1;

namespace {

constexpr int longestName = 22; // characters, in the menu
constexpr int longestText = 45;
constexpr int shortestPath = 5;

/// The first characters of a text, without half of one that takes two places.
QString firstOf(const QString& text, int length)
{
    const QString cut = text.left(length);
    return !cut.isEmpty() && cut.back().isHighSurrogate() ? cut.chopped(1) : cut;
}

QString lastOf(const QString& text, int length)
{
    const QString cut = text.right(length);
    return !cut.isEmpty() && cut.front().isLowSurrogate() ? cut.mid(1) : cut;
}

} // namespace

QString recentText(const Record& rec, const QString& dir)
{
    const QString names =
        QStringLiteral("%1 - %2, ").arg(firstOf(rec.ref_sig, longestName), firstOf(rec.meas_sig, longestName))
        + QString::number(rec.ch);
    const QString path = QDir(dir).absolutePath();
    const QString joint = QStringLiteral(": ");
    const int room = longestText - names.size() - joint.size();
    if (path.size() <= room)
        return names + joint + path;
    if (room < shortestPath)
        return names;
    const int head = (room - 1) / 2;
    return names + joint + firstOf(path, head) + QChar(0x2026) + lastOf(path, room - 1 - head);
}

void enterRecentRecord(
    const Record& rec, int type, const QString& dir, const QString& format, double multiplier, int column)
{
    RecentRecs& entry = RecRecs[nextRecRecsIndex];
    entry.type = short(type);
    entry.ch = short(rec.ch);
    entry.dir = QDir(QDir(dir).absolutePath()); // the next start may be in another directory
    entry.format = type == recentAscii ? format : QString();
    entry.num = rec.n_cnt;
    entry.start = rec.start;
    entry.stop = rec.stop;
    entry.devType = char(rec.devType);
    entry.str = recentText(rec, dir);
    entry.interval = rec.Kdec;
    entry.multiplier = multiplier;
    entry.column = column;
    entry.band = rec.Band;
    entry.ref = rec.ref_sig;
    entry.meas = rec.meas_sig;
    NumRecentRecs = std::min(NumRecentRecs + 1, maxRecentRecs);
    nextRecRecsIndex = (nextRecRecsIndex + 1) % maxRecentRecs;
}

QVector<RecentRecs> recentRecords()
{
    QVector<RecentRecs> entries;
    int slot = nextRecRecsIndex;
    for (int i = 0; i < NumRecentRecs; ++i) {
        slot = slot == 0 ? maxRecentRecs - 1 : slot - 1;
        entries << RecRecs[slot];
    }
    return entries;
}

void setRecentRecords(const QVector<RecentRecs>& entries)
{
    std::fill(std::begin(RecRecs), std::end(RecRecs), RecentRecs());
    NumRecentRecs = std::min(int(entries.size()), maxRecentRecs);
    nextRecRecsIndex = NumRecentRecs % maxRecentRecs;
    std::reverse_copy(entries.cbegin(), entries.cbegin() + NumRecentRecs, RecRecs);
}

void addRecentRecs(QDomDocument& document, QDomElement& parent, const QVector<RecentRecs>& entries)
{
    QDomElement list = document.createElement(QStringLiteral("RecentRecs"));
    parent.appendChild(list);
    for (int i = 0; i < entries.size(); ++i) {
        const RecentRecs& entry = entries.at(i);
        QDomElement nom = document.createElement(QStringLiteral("nom"));
        nom.setAttribute(QStringLiteral("number"), i);
        list.appendChild(nom);
        const auto add = [&](const char* name, const auto& value) {
            QDomElement element = document.createElement(QLatin1String(name));
            element.appendChild(document.createTextNode(configValue::textOf(value)));
            nom.appendChild(element);
        };
        add("type", entry.type);
        add("str", entry.str);
        add("dir", entry.dir.path());
        add("start", entry.start);
        add("stop", entry.stop);
        add("num", entry.num);
        add("ch", entry.ch);
        add("format", entry.format);
        add("devType", entry.devType);
        // Every digit counts here: the record is read again with these figures.
        add("interval", QString::number(entry.interval, 'g', QLocale::FloatingPointShortest));
        add("multiplier", QString::number(entry.multiplier, 'g', QLocale::FloatingPointShortest));
        add("column", entry.column);
        add("band", entry.band);
        add("ref", entry.ref);
        add("meas", entry.meas);
    }
}
