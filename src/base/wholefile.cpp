#include "base/wholefile.h"

#include <QIODevice>
#include <QSaveFile>

bool writeWhole(QIODevice* device, const char* bytes, qint64 count)
{
    while (count > 0) {
        const qint64 written = device->write(bytes, count);
        if (written <= 0)
            return false;
        bytes += written;
        count -= written;
    }
    return true;
}

bool openToReplace(QSaveFile* file)
{
    return file->open(QIODevice::WriteOnly | QIODevice::Unbuffered);
}

bool replaceFile(const QString& name, const QByteArray& content, QString* error)
{
    QSaveFile file(name);
    if (openToReplace(&file) && writeWhole(&file, content.constData(), content.size()) && file.commit())
        return true;
    if (error)
        *error = file.errorString();
    return false;
}
