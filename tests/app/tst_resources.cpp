#include "resources/resources.h"

#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QIcon>
#include <QRegularExpression>
#include <QTest>
#include <QTranslator>

class TstResources : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { initResources(); }
    void everyPictureIsReadable();
    void namedPicturesExist_data();
    void namedPicturesExist();
    void windowsNameExistingPicturesOnly();
    void windowIconHasTheCommonSizes();
    void translationIsReadable();
};

void TstResources::everyPictureIsReadable()
{
    int count = 0;
    for (QDirIterator files(QStringLiteral(":/bmp"), QDir::Files, QDirIterator::Subdirectories);
         files.hasNext();) {
        const QString name = files.next();
        const QImage picture(name);
        QVERIFY2(!picture.isNull(), qPrintable(name));
        QVERIFY2(picture.hasAlphaChannel(), qPrintable(name));
        QVERIFY2(!QIcon(name).pixmap(16, 16).isNull(), qPrintable(name));
        ++count;
    }
    QVERIFY(count > 30);
}

void TstResources::namedPicturesExist_data()
{
    QTest::addColumn<QString>("name");
    for (const char* name :
        {":/Icon.ico", ":/bmp/phaseIcon.png", ":/bmp/freqIcon.png", ":/bmp/B_SAMP.bmp", ":/bmp/B_FR_DIF.bmp",
            ":/bmp/bmp/B_FR_DIF.BMP", ":/bmp/B_VAR.bmp", ":/bmp/B_VARCross.bmp", ":/bmp/B_SPEC.bmp",
            ":/bmp/bmp/SAVE.png", ":/bmp/bmp/PRT-UP.BMP", ":/bmp/bmp/Cut.png", ":/bmp/bmp/tab.png"})
        QTest::newRow(name) << name;
}

void TstResources::namedPicturesExist()
{
    QFETCH(const QString, name);
    QVERIFY(!QImage(name).isNull());
}

void TstResources::windowsNameExistingPicturesOnly()
{
    const QRegularExpression name(QStringLiteral(":/(?:bmp|Icon|lang)[^\\s\"<]*"));
    const QStringList kinds{QStringLiteral("*.ui"), QStringLiteral("*.cpp")};
    int count = 0;
    for (QDirIterator files(qEnvironmentVariable("KRONALYS_SOURCE") + QLatin1String("/src"), kinds,
             QDir::Files, QDirIterator::Subdirectories);
         files.hasNext();) {
        QFile source(files.next());
        QVERIFY(source.open(QIODevice::ReadOnly));
        for (auto found = name.globalMatch(QString::fromUtf8(source.readAll())); found.hasNext(); ++count) {
            const QString used = found.next().captured();
            QVERIFY2(QFileInfo::exists(used), qPrintable(source.fileName() + QLatin1String(": ") + used));
        }
    }
    QVERIFY(count > 10);
}

void TstResources::windowIconHasTheCommonSizes()
{
    const QIcon icon(QStringLiteral(":/Icon.ico"));
    for (const int size : {16, 32, 48})
        QVERIFY(icon.availableSizes().contains(QSize(size, size)));
}

void TstResources::translationIsReadable()
{
    QTranslator translator;
    QVERIFY(translator.load(QStringLiteral(":/lang/Kronalys_en.qm")));
}

QTEST_MAIN(TstResources)
#include "tst_resources.moc"
