#pragma once

#include <QByteArray>
#include <QString>

class QIODevice;
class QSaveFile;

/// Writes all bytes, in as many pieces as the system takes. False as soon as it takes none; the device then
/// tells the reason.
bool writeWhole(QIODevice* device, const char* bytes, qint64 count);

/// Opens the temporary file that will replace `file->fileName()`. Without a buffer of Qt's own: what a full
/// disk refuses when the buffer is written at the very end would go unnoticed, and the cut file would replace
/// the old one.
bool openToReplace(QSaveFile* file);

/// Puts `content` in place of a file, whole or not at all. False, with the system's reason in `error` (may be
/// null), when the old file still stands.
bool replaceFile(const QString& name, const QByteArray& content, QString* error = nullptr);
