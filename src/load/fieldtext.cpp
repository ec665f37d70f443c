#include "load/fieldtext.h"

#include <QFileInfo>
#include <QLineEdit>
#include <QLocale>
#include <QRegularExpressionValidator>

#include <cmath>

void FieldText::restrict(QLineEdit* field, const char* pattern)
{
    field->setValidator(new QRegularExpressionValidator(QRegularExpression(QLatin1String(pattern)), field));
}

double FieldText::number(const QString& text, bool* ok)
{
    const double value = QString(text).replace(QLatin1Char(','), QLatin1Char('.')).toDouble(ok);
    *ok = *ok && std::isfinite(value);
    return value;
}

QString FieldText::text(double number)
{
    return QString::number(number, 'g', QLocale::FloatingPointShortest);
}

bool FieldText::isRecordingPath(const QString& path)
{
    return path.endsWith(QLatin1String(".inf"), Qt::CaseInsensitive);
}

QString FieldText::fileFault(const QString& path)
{
    const QFileInfo info(path);
    if (!info.exists())
        return info.isSymLink() ? tr("Ссылка ведет к файлу, которого нет.") : tr("Файла с таким именем нет.");
    if (info.isDir())
        return tr("Это каталог. Укажите файл в нем.");
    if (!info.isFile())
        return tr("Это не файл данных, а канал, сокет или устройство.");
    if (!info.isReadable())
        return tr("Нет прав на чтение файла.");
    return {};
}

QString FieldText::directoryFault(const QString& path)
{
    const QFileInfo info(path);
    if (path.isEmpty())
        return tr("Каталог не указан.");
    if (!info.exists())
        return tr("Каталога с таким именем нет.");
    if (!info.isDir())
        return tr("Это не каталог.");
    if (!info.isReadable())
        return tr("Нет прав на чтение каталога.");
    return {};
}
