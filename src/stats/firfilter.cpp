#include "stats/firfilter.h"

#include "base/debuglog.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringList>
#include <QTemporaryFile>

#include <cmath>
#include <cstddef>

namespace {

constexpr qint64 mostText = 65536; // bytes

void complain(const QString& fileName, const QString& what)
{
    DebugLOG(qPrintable(fileName + QStringLiteral(": ") + what));
}

QStringList filledPlaces(QString text)
{
    QStringList places;
    for (const QString& place : text.replace(QLatin1Char('\n'), QLatin1Char(',')).split(QLatin1Char(','))) {
        const QString trimmed = place.trimmed();
        if (!trimmed.isEmpty())
            places << trimmed;
    }
    return places;
}

}

FirFilter readFirFilter(const QString& fileName)
{
    FirFilter taps{};
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly)) {
        complain(fileName, file.errorString() + QStringLiteral("; the filter is zero"));
        return taps;
    }
    const QByteArray text = file.read(mostText);
    if (!file.atEnd())
        complain(fileName, QStringLiteral("the text after %1 bytes is passed over").arg(mostText));
    const QStringList places = filledPlaces(QString::fromUtf8(text.constData(), text.size()));
    for (int i = 0; i < qMin(firTaps, places.size()); ++i) {
        bool isNumber = false;
        const double value = places.at(i).toDouble(&isNumber);
        if (isNumber && std::isfinite(value))
            taps[static_cast<std::size_t>(i)] = value;
        else
            complain(fileName,
                QStringLiteral("place %1 counts as 0, since it holds no number: ").arg(i + 1)
                    + places.at(i).left(40));
    }
    if (places.size() < firTaps)
        complain(fileName,
            QStringLiteral("%1 numbers instead of %2; the rest counts as 0").arg(places.size()).arg(firTaps));
    if (places.size() > firTaps)
        complain(fileName,
            QStringLiteral("%1 numbers instead of %2; the last ones are passed over")
                .arg(places.size())
                .arg(firTaps));
    return taps;
}

bool installDefaultFilter(const QString& configDir)
{
    const QString fileName = configDir + QStringLiteral("/filter.txt");
    const auto stands = [&fileName] {
        const QFileInfo info(fileName);
        return info.exists() || info.isSymLink(); // a broken link is the user's, too
    };
    if (stands())
        return true;
    Q_INIT_RESOURCE(filter);
    QFile source(QStringLiteral(":/filter.txt"));
    QDir().mkpath(configDir);
    QTemporaryFile copy(fileName + QStringLiteral(".new"));
    const bool written = source.open(QIODevice::ReadOnly) && copy.open()
        && copy.write(source.readAll()) == source.size() && copy.flush()
        && copy.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther);
    if (written && copy.rename(fileName)) { // which refuses to replace a file that has come up meanwhile
        copy.setAutoRemove(false);
        return true;
    }
    if (!stands())
        complain(fileName, copy.errorString() + QStringLiteral("; the default filter cannot be written"));
    return stands();
}
