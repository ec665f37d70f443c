#include "load/core/fileguess.h"

#include <QFile>
#include <QFileInfo>
#include <QList>

#include <algorithm>

namespace {

constexpr int longestLine = 200; // bytes

QDateTime timeMade(const QFileInfo& info)
{
    const QDateTime birth = info.birthTime();
    return birth.isValid() ? birth : info.metadataChangeTime();
}

QDateTime startFromComment(const QByteArray& line)
{
    const QString text = QString::fromUtf8(line.mid(1, 19)).simplified();
    const QDateTime start = QDateTime::fromString(text, QStringLiteral("dd.MM.yy hh:mm:ss"));
    return start.isValid() && start.date().year() < 1970 ? start.addYears(100) : start;
}

FileKind kindFromLine(const QByteArray& line)
{
    const QList<QByteArray> fields = line.simplified().split(' ');
    const bool numbers = std::all_of(fields.begin(), fields.end(), [](const QByteArray& field) {
        bool ok = false;
        field.toFloat(&ok);
        return ok;
    });
    if (!numbers)
        return FileKind::Other;
    if (fields.size() == 3)
        return FileKind::Hrl314;
    return fields.size() == 2 ? FileKind::Hrl315 : FileKind::Other;
}

} // namespace

FileGuess guessFile(const QString& fileName, const QDateTime& now)
{
    FileGuess guess{FileKind::Unknown, now};
    const QFileInfo info(fileName);
    if (!info.exists())
        return guess;
    guess.start = QDateTime();
    QFile file(fileName);
    // Pipes and devices may never end, so they count as files that cannot be opened.
    if (!info.isFile() || !file.open(QIODevice::ReadOnly)) {
        guess.start = timeMade(info);
        return guess;
    }
    guess.kind = FileKind::Other;
    bool commentSeen = false;
    bool first = true;
    while (!file.atEnd()) {
        QByteArray line = file.readLine(longestLine);
        if (first && line.startsWith("\xEF\xBB\xBF"))
            line.remove(0, 3);
        first = false;
        if (line.startsWith("Start:")) {
            const QString text = QString::fromUtf8(line.mid(6)).simplified();
            guess.start = QDateTime::fromString(text, QStringLiteral("yyyy-MM-dd hh:mm:ss"));
        } else if (line.startsWith('#')) {
            if (!commentSeen)
                guess.start = startFromComment(line);
            commentSeen = true;
        } else {
            guess.kind = kindFromLine(line);
            break;
        }
    }
    guess.startTold = guess.start.isValid();
    if (!guess.startTold)
        guess.start = timeMade(info);
    return guess;
}

QString templateFor(FileKind kind)
{
    return kind == FileKind::Hrl314 ? QStringLiteral("[t] [x] [y]") : QStringLiteral("[t] [x]");
}
