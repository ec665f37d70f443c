#pragma once

#include <QTemporaryDir>

/// Gives the program a working tree of its own (configuration, data, log) for the life of the object.
class ScopedHome {
public:
    ScopedHome();
    ~ScopedHome();
    ScopedHome(const ScopedHome&) = delete;
    ScopedHome& operator=(const ScopedHome&) = delete;

    /// Path of a file below the tree.
    QString file(const QString& name) const { return m_dir.filePath(name); }
    /// Writes a file below the tree and returns its path.
    QString write(const QString& name, const QByteArray& content) const;

private:
    QTemporaryDir m_dir;
};
