#pragma once

#include <QDir>
#include <QFile>
#include <QString>
#include <QTemporaryDir>

/// A built help collection in a directory of its own, as after an installation.
class HelpCopy {
public:
    explicit HelpCopy(const QString& name = QStringLiteral("KronalysHelp"))
        : m_name(name)
    {
        const QDir built(qEnvironmentVariable("KRONALYS_BIN") + QStringLiteral("/doc"));
        for (const QString& suffix : {QStringLiteral(".qhc"), QStringLiteral(".qch")})
            QFile::copy(built.filePath(name + suffix), m_dir.filePath(name + suffix));
    }

    QString collection() const { return m_dir.filePath(m_name + QStringLiteral(".qhc")); }
    QString pages() const { return m_dir.filePath(m_name + QStringLiteral(".qch")); }

private:
    QTemporaryDir m_dir;
    QString m_name;
};
