#include "base/wholefile.h"
#include "support/scopedhome.h"

#include <QFile>
#include <QTest>

#include <csignal>
#include <sys/resource.h>

namespace {

/// Files that this process writes may not grow beyond this, as on a disk that is nearly full.
class ScopedFileLimit {
public:
    explicit ScopedFileLimit(rlim_t bytes)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit{bytes, m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~ScopedFileLimit() { setrlimit(RLIMIT_FSIZE, &m_before); }
    ScopedFileLimit(const ScopedFileLimit&) = delete;
    ScopedFileLimit& operator=(const ScopedFileLimit&) = delete;

private:
    rlimit m_before{};
};

QByteArray content(const QString& name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("cannot be read");
}

} // namespace

class TestWholeFile : public QObject {
    Q_OBJECT
private slots:
    void replaces();
    void keepsTheOldFile_data();
    void keepsTheOldFile();
};

void TestWholeFile::replaces()
{
    const ScopedHome home;
    const QString name = home.write(QStringLiteral("file"), "old");
    QVERIFY(replaceFile(name, QByteArray(100000, 'n')));
    QCOMPARE(content(name), QByteArray(100000, 'n'));
}

void TestWholeFile::keepsTheOldFile_data()
{
    QTest::addColumn<int>("length");
    // Qt's own buffer of 16 KiB would swallow the failure of what is written last.
    for (const int length : {4097, 16000, 20000, 100000})
        QTest::addRow("%d bytes", length) << length;
}

void TestWholeFile::keepsTheOldFile()
{
    QFETCH(const int, length);
    const ScopedHome home;
    const QString name = home.write(QStringLiteral("file"), "old");
    QString error;
    {
        const ScopedFileLimit limit(4096);
        QVERIFY(!replaceFile(name, QByteArray(length, 'n'), &error));
    }
    QVERIFY(!error.isEmpty());
    QCOMPARE(content(name), QByteArray("old"));
}

QTEST_GUILESS_MAIN(TestWholeFile)
#include "tst_wholefile.moc"
