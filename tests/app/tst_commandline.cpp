#include <QProcess>
#include <QTest>

/// The program itself, where there is no display.
class TstCommandLine : public QObject {
    Q_OBJECT
private slots:
    void answers_data();
    void answers();
};

void TstCommandLine::answers_data()
{
    QTest::addColumn<QStringList>("words");
    QTest::addColumn<int>("status");
    QTest::addColumn<QString>("platform");
    QTest::addColumn<QByteArray>("said");
    const QString none = QStringLiteral("xcb");
    const QString offscreen = QStringLiteral("offscreen");
    QTest::newRow("help") << QStringList{"--help"} << 0 << none << QByteArray("Usage:");
    QTest::newRow("version") << QStringList{"--version"} << 0 << none << QByteArray("Kronalys 1.24.02.376\n");
    QTest::newRow("behind Qt's own") << QStringList{"-platform", "xcb", "-v"} << 0 << none
                                     << QByteArray("1.24");
    QTest::newRow("unknown option") << QStringList{"--nonsense"} << 2 << offscreen << QByteArray("nonsense");
}

void TstCommandLine::answers()
{
    QFETCH(const QStringList, words);
    QFETCH(const int, status);
    QFETCH(const QString, platform);
    QFETCH(const QByteArray, said);
    QProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(QStringLiteral("DISPLAY"));
    environment.remove(QStringLiteral("WAYLAND_DISPLAY"));
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), platform);
    program.setProcessEnvironment(environment);
    program.setProcessChannelMode(QProcess::MergedChannels);
    program.start(qEnvironmentVariable("KRONALYS_BIN") + QLatin1String("/kronalys"), words);
    QVERIFY(program.waitForFinished());
    QCOMPARE(program.exitStatus(), QProcess::NormalExit);
    QCOMPARE(program.exitCode(), status);
    const QByteArray output = program.readAll();
    QVERIFY2(output.contains(said), output.constData());
}

QTEST_GUILESS_MAIN(TstCommandLine)
#include "tst_commandline.moc"
