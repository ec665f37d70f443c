#include "support/scopedhome.h"

#include "base/paths.h"

#include <QFile>

ScopedHome::ScopedHome()
{
    paths::setRoot(m_dir.path());
    paths::makeAll();
}

ScopedHome::~ScopedHome()
{
    paths::setRoot(QString());
}

QString ScopedHome::write(const QString& name, const QByteArray& content) const
{
    QFile out(file(name));
    if (!out.open(QIODevice::WriteOnly) || out.write(content) != content.size())
        qFatal("cannot write %s", qPrintable(out.fileName()));
    return out.fileName();
}
