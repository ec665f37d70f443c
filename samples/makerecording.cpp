// makerecording DIRECTORY FROM DAYS CHANNELS [INTERVAL [TYPE]]: fills a directory with recordings for trials.
// FROM is a date as 2026-01-31, INTERVAL the seconds between samples (1), TYPE the form of the information
// structures, 1 or 2 (1).

#include "samples/recording.h"

#include <QDir>

#include <cstdio>
#include <cstdlib>

int main(int argc, char** argv)
{
    const auto number = [&](int index, int fallback) {
        return index < argc ? std::atoi(argv[index]) : fallback;
    };
    const QDate from = argc > 2 ? QDate::fromString(QString::fromLatin1(argv[2]), Qt::ISODate) : QDate();
    const int days = number(3, 0), channels = number(4, 0), interval = number(5, 1), type = number(6, 1);
    if (!from.isValid() || days < 1 || channels < 1 || channels > 16 || interval < 1 || type < 1
        || type > 2) {
        std::fputs("makerecording DIRECTORY FROM DAYS CHANNELS [INTERVAL [TYPE]]\n", stderr);
        return 2;
    }
    const QString directory = QString::fromLocal8Bit(argv[1]);
    if (QDir().mkpath(directory)
        && RecordingWriter(QDir(directory), type).writeMixture(from, days, channels, interval))
        return 0;
    std::fprintf(stderr, "The directory %s cannot be written.\n", argv[1]);
    return 1;
}
