#include "load/core/configfile.h"
#include "load/optionsform.h"
#include "load/properties.h"
#include "support/scopedhome.h"
#include "support/scopedprompts.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTest>
#include <QTranslator>

namespace {

/// Gives "=" and the source text for every text.
class Marking : public QTranslator {
public:
    QString translate(const char*, const char* text, const char*, int) const override
    {
        return QLatin1Char('=') + QString::fromUtf8(text);
    }
    bool isEmpty() const override { return false; }
};

/// The dialog over a configuration file of its own, shown.
struct Bench {
    ScopedHome home;
    ScopedPrompts prompts;
    Properties dialog;
    QSignalSpy changed{&dialog, &Properties::PropChanged};

    Bench() { dialog.show(); }

    template <class Widget> Widget* find(const char* name)
    {
        auto* widget = dialog.findChild<Widget*>(QLatin1String(name));
        if (!widget)
            qFatal("no %s", name);
        return widget;
    }
    QString text(const char* field) { return find<QLineEdit>(field)->text(); }
    void set(const char* field, const QString& text) { find<QLineEdit>(field)->setText(text); }
    void press(QDialogButtonBox::StandardButton button)
    {
        find<QDialogButtonBox>("buttonBox")->button(button)->click();
    }
};

} // namespace

class TestProperties : public QObject {
    Q_OBJECT
private slots:
    void readsTheFile();
    void accepting_data();
    void accepting();
    void directory();
    void cancelling();
    void defaults();
    void texts();
    void fitsSmallScreens();
    void options();
};

void TestProperties::readsTheFile()
{
    Bench bench;
    QCOMPARE(bench.text("portEdit"), QStringLiteral("2220"));
    QCOMPARE(bench.dialog.settings.cggtts.date2, QDate::currentDate());
    bench.home.write(QStringLiteral("config/recfiles.xml"),
        "<!--Application_Lang=\"en\"--><xml><Globals><updCycle>33</updCycle><removeF0Vals>1</removeF0Vals>"
        "</Globals><incConnection_prop><DEV_PORT>12</DEV_PORT></incConnection_prop></xml>");
    bench.dialog.readXML();
    QCOMPARE(bench.text("updCycleEdit"), QStringLiteral("33"));
    QCOMPARE(bench.text("portEdit"), QStringLiteral("12"));
    QVERIFY(bench.find<QCheckBox>("removeF0Box")->isChecked());
    QCOMPARE(bench.dialog.settings.language, QStringLiteral("en"));
    Properties another;
    QCOMPARE(int(another.settings.updCycle), 33);
}

void TestProperties::accepting_data()
{
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("value");
    const auto row = [](const char* field, const char* typed, int value) {
        QTest::addRow("%s %s", field, typed)
            << QString::fromLatin1(field) << QString::fromLatin1(typed) << value;
    };
    row("portEdit", "1", 1);
    row("portEdit", "65535", 65535);
    row("portEdit", "65536", 2220);
    row("portEdit", "0", 2220);
    row("portEdit", "", 2220);
    row("portEdit", "port", 2220);
    row("updCycleEdit", "0", 0);
    row("updCycleEdit", "65535", 65535);
    row("updCycleEdit", "65536", 15);
    row("updCycleEdit", "-1", 15);
    row("updCycleEdit", "1.5", 15);
    row("avarLimitEdit", "-5", -5);
    row("avarLimitEdit", "0", 0);
    row("avarLimitEdit", "2147483648", 1000000);
    row("avarLimitEdit", "1e6", 1000000);
}

void TestProperties::accepting()
{
    QFETCH(const QString, field);
    QFETCH(const QString, typed);
    QFETCH(const int, value);
    Bench bench;
    bench.dialog.settings.winProp.extChannels = false;
    for (const char* other : {"portEdit", "updCycleEdit", "avarLimitEdit"})
        bench.set(other, QStringLiteral("7"));
    bench.set(qPrintable(field), typed);
    bench.find<QCheckBox>("removeF0Box")->setChecked(true);
    bench.find<QCheckBox>("extChannelsBox")->setChecked(true);
    bench.find<QRadioButton>("simultaneousBtn")->setChecked(true);
    QCOMPARE(bench.changed.count(), 0);
    bench.press(QDialogButtonBox::Ok);
    QCOMPARE(bench.changed.count(), 1);
    QCOMPARE(bench.dialog.result(), int(QDialog::Accepted));
    QVERIFY(!bench.dialog.isVisible());
    const Settings& got = bench.dialog.settings;
    QCOMPARE(got.DEV_PORT, field == QStringLiteral("portEdit") ? value : 7);
    QCOMPARE(int(got.updCycle), field == QStringLiteral("updCycleEdit") ? value : 7);
    QCOMPARE(got.AVAR_numPT_perTau, field == QStringLiteral("avarLimitEdit") ? value : 7);
    QCOMPARE(bench.text(qPrintable(field)), QString::number(value)); // written back
    QVERIFY(got.removeF0Vals);
    QVERIFY(got.winProp.extChannels);
    QVERIFY(got.simultaneousMoments);
}

void TestProperties::directory()
{
    Bench bench;
    const QString before = bench.dialog.settings.cggtts.db_path;
    auto* note = bench.find<QLabel>("dbPathNote");
    for (const QString& none : {bench.home.file(QStringLiteral("none")), QString()}) {
        bench.dialog.show();
        bench.set("dbPathEdit", none);
        QVERIFY(note->isVisible());
        bench.press(QDialogButtonBox::Ok);
        QCOMPARE(bench.dialog.settings.cggtts.db_path, before);
        QCOMPARE(bench.text("dbPathEdit"), before);
        QVERIFY(note->isHidden());
    }
    const QString chosen = bench.home.file(QStringLiteral("log"));
    bench.prompts.chooseFile(chosen);
    bench.prompts.chooseFile(QString());
    bench.find<QPushButton>("pushButton")->click();
    bench.find<QPushButton>("pushButton")->click(); // cancelled: the field stays
    QCOMPARE(bench.prompts.seen.at(0).title, QStringLiteral("Выбрать каталог с базой данных cggtts.dblite"));
    QCOMPARE(bench.text("dbPathEdit"), chosen);
    QCOMPARE(bench.dialog.settings.cggtts.db_path, before);
    bench.press(QDialogButtonBox::Ok);
    QCOMPARE(bench.dialog.settings.cggtts.db_path, chosen);
}

void TestProperties::cancelling()
{
    Bench bench;
    bench.set("portEdit", QStringLiteral("9"));
    bench.find<QRadioButton>("simultaneousBtn")->setChecked(true);
    bench.press(QDialogButtonBox::Cancel);
    QCOMPARE(bench.changed.count(), 0);
    QCOMPARE(bench.dialog.settings.DEV_PORT, 2220);
    bench.dialog.settings.updCycle = 44; // set elsewhere
    bench.dialog.settings.lastUsedRecID = 9;
    bench.dialog.show();
    QCOMPARE(bench.text("portEdit"), QStringLiteral("2220"));
    QCOMPARE(bench.text("updCycleEdit"), QStringLiteral("44"));
    QVERIFY(bench.find<QRadioButton>("timeMarksBtn")->isChecked());
    bench.dialog.settings.lastUsedRecID = 10; // while the window is open
    bench.find<QPushButton>("defaultsBtn")->click();
    bench.dialog.close();
    QCOMPARE(int(bench.dialog.settings.updCycle), 44);
    QCOMPARE(int(bench.dialog.settings.lastUsedRecID), 10);
}

void TestProperties::defaults()
{
    Bench bench;
    Settings& settings = bench.dialog.settings;
    settings.removeF0Vals = settings.winProp.extChannels = settings.simultaneousMoments = true;
    settings.DEV_PORT = settings.updCycle = 8;
    settings.AVAR_numPT_perTau = settings.Interval = 8;
    settings.cggtts.db_path = bench.home.file(QStringLiteral("log"));
    bench.dialog.hide();
    bench.dialog.show();
    bench.find<QPushButton>("defaultsBtn")->click();
    for (int time = 0; time < 2; ++time) {
        QVERIFY(!settings.removeF0Vals);
        QVERIFY(!settings.winProp.extChannels);
        QCOMPARE(settings.DEV_PORT, 2220);
        QCOMPARE(int(settings.updCycle), 15);
        QCOMPARE(settings.AVAR_numPT_perTau, 1000000);
        QVERIFY(settings.simultaneousMoments);
        QCOMPARE(settings.Interval, 8);
        QCOMPARE(settings.cggtts.db_path, bench.home.file(QStringLiteral("log")));
        if (time == 0)
            bench.press(QDialogButtonBox::Ok); // the fields show the same
    }
}

void TestProperties::texts()
{
    Bench bench;
    QCOMPARE(bench.dialog.windowTitle(), QStringLiteral("Параметры"));
    QCOMPARE(bench.find<QLabel>("avarNote")->text(),
        QStringLiteral(
            "(при вводе отрицательного значения будет использоваться\nвесь доступный набор данных)"));
    QCOMPARE(bench.find<QRadioButton>("simultaneousBtn")->text(),
        QStringLiteral("Считать моменты измерений одновременными, \nначальные отсчеты совпадающими\n"
                       "в случае если Дата и время старта записей совпадают"));
    bench.set("portEdit", QStringLiteral("9"));
    bench.set("dbPathEdit", QString());
    Marking translator;
    QCoreApplication::installTranslator(&translator);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LanguageChange);
    QVERIFY(bench.dialog.windowTitle().startsWith(QLatin1Char('=')));
    QCOMPARE(bench.find<QPushButton>("defaultsBtn")->text(),
        QStringLiteral("=Восстановить значения по умолчанию"));
    QVERIFY(bench.find<QLabel>("dbPathNote")->text().startsWith(QLatin1Char('=')));
    QCOMPARE(bench.text("portEdit"), QStringLiteral("9")); // what is typed stays
    QCoreApplication::removeTranslator(&translator);
}

void TestProperties::fitsSmallScreens()
{
    Bench bench;
    QFont large = bench.dialog.font();
    large.setPointSize(20);
    bench.dialog.setFont(large);
    bench.dialog.setNewSize({100, 100});
    QVERIFY(bench.dialog.width() >= bench.dialog.minimumSizeHint().width());
    QVERIFY(bench.dialog.minimumSizeHint().height() < 600);
    QVERIFY2(bench.dialog.minimumSizeHint().width() <= 800,
        qPrintable(QString::number(bench.dialog.minimumSizeHint().width())));
    bench.dialog.setNewSize({100000, 100000});
    QVERIFY(bench.dialog.width() < 10000);
}

void TestProperties::options()
{
    OptionsForm form;
    const auto button = [&](const char* name) { return form.findChild<QRadioButton*>(QLatin1String(name)); };
    form.show();
    QCOMPARE(form.mode(), OptionsForm::Standard);
    button("crossXyzBtn")->click();
    form.reject();
    QCOMPARE(form.mode(), OptionsForm::Standard);
    QVERIFY(button("standardBtn")->isChecked());
    for (const char* name : {"crossYxBtn", "crossXyzBtn", "standardBtn"}) {
        button(name)->click();
        form.accept();
        OptionsForm again;
        again.setMode(form.mode());
        QVERIFY(again.findChild<QRadioButton*>(QLatin1String(name))->isChecked());
        again.accept();
        QCOMPARE(again.mode(), form.mode());
    }
    QCOMPARE(button("crossYxBtn")->text(), QStringLiteral("Кросс YX*YX"));
}

QTEST_MAIN(TestProperties)
#include "tst_properties.moc"
