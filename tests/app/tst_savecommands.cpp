#include "base/globals.h"
#include "prompt/prompt.h"
#include "resources/resources.h"
#include "store/core/mapstruct.h"
#include "support/dayrecord.h"
#include "support/scopedhome.h"
#include "support/scopedprompts.h"
#include "table/selrectable.h"

#include <QAbstractButton>
#include <QAction>
#include <QDir>
#include <QMessageBox>
#include <QScopeGuard>
#include <QSignalSpy>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTest>

#include <functional>
#include <memory>

/// Saving the rows of the record table, and reading these on, against receivers as the loading dialog is one.
class SaveCommandsTest : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { initResources(); }
    void init();
    void cleanup();
    void nothingToSave();
    void savesTheCheckedRows();
    void takenNames();
    void numberGrowsWithinOneCommand();
    void contextMenuSavesItsRow();
    void failures_data();
    void failures();
    void stopped();
    void liveRecord();
    void asText();
    void readsOn_data();
    void readsOn();
    void readsOnFromTheLastRow();
    void narrowWindow();

private:
    struct Fresh {
        int channel = 1;
        int n = 100; // samples a day
        int days = 2;
        double factor = 1.0;
        double interval = 1.0;
    };
    static void fill(Record& record, const Fresh& fresh);
    void add(const Fresh& fresh);
    void checkRows(const QVector<int>& rowSet);
    void writeRecordings();
    void answer(const std::function<QString(Record*)>& receive);
    QStringList files(const char* pattern = "*") const;
    /// Has a command save into the folder, with these further answers, and gives the last box.
    ScopedPrompts::Seen save(const QVector<int>& answers = {});
    void press(const char* button) { m_table->findChild<QAbstractButton*>(button)->click(); }

    std::unique_ptr<ScopedHome> m_home;
    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<SelRecTable> m_table;
    QTableWidget* m_rows = nullptr;
    QString m_savePath;
    QMessageBox::Icon m_icon = QMessageBox::NoIcon; // of the last box
};

void SaveCommandsTest::init()
{
    removeF0Vals = false;
    m_home = std::make_unique<ScopedHome>();
    m_folder = std::make_unique<QTemporaryDir>();
    m_table = std::make_unique<SelRecTable>();
    m_rows = m_table->findChild<QTableWidget*>("recTable");
    m_savePath.clear();
    m_table->setProp(nullptr, &m_savePath);
    m_table->show();
}

void SaveCommandsTest::cleanup()
{
    m_table.reset();
    m_folder.reset();
    m_home.reset();
}

/// From midnight on; the sample at the time t, s, is factor * (t + 1) ns.
void SaveCommandsTest::fill(Record& record, const Fresh& fresh)
{
    std::vector<TestDay> days(size_t(fresh.days));
    for (int day = 0; day < fresh.days; ++day) {
        for (int i = 0; i < fresh.n; ++i) {
            days[size_t(day)].t.push_back(86400.0 * day + i * fresh.interval);
            days[size_t(day)].x.push_back(fresh.factor * 1e-9 * (days[size_t(day)].t.back() + 1));
        }
    }
    fillDays(record, days, fresh.interval);
    record.ch = fresh.channel;
    record.devType = 3;
    record.path = QStringLiteral("/recordings");
}

void SaveCommandsTest::add(const Fresh& fresh)
{
    Record made;
    fill(made, fresh);
    m_table->addRecord(&made);
}

void SaveCommandsTest::checkRows(const QVector<int>& rowSet)
{
    m_table->uncheckAllRec();
    for (const int row : rowSet)
        m_rows->item(row, 0)->setCheckState(Qt::Checked);
}

void SaveCommandsTest::answer(const std::function<QString(Record*)>& receive)
{
    connect(m_table.get(), &SelRecTable::SaveRecs, this,
        [this, receive](Record* rec) { m_table->recSaved(receive(rec)); });
}

/// The receiver writes what it gets, as the loading dialog does.
void SaveCommandsTest::writeRecordings()
{
    connect(m_table.get(), &SelRecTable::SaveRecs, this, [this](Record* rec, QDir* directory, quint8 number) {
        QVERIFY(SLEEP);
        mapStruct map(0, 0);
        const int failed = map.SaveToInfDat(rec, directory, 0, number);
        m_table->recSaved(failed == 0 ? QString() : map.error());
    });
}

QStringList SaveCommandsTest::files(const char* pattern) const
{
    return QDir(m_folder->path()).entryList({QString::fromLatin1(pattern)}, QDir::Files, QDir::Name);
}

ScopedPrompts::Seen SaveCommandsTest::save(const QVector<int>& answers)
{
    ScopedPrompts prompts;
    prompts.chooseFile(m_folder->path());
    for (const int button : answers)
        prompts.press(button);
    prompts.handle([this](QDialog& dialog) {
        m_icon = static_cast<QMessageBox&>(dialog).icon();
        return int(QDialog::Accepted);
    });
    m_table->SaveRecsToFile();
    return prompts.seen.isEmpty() ? ScopedPrompts::Seen() : prompts.seen.last();
}

void SaveCommandsTest::nothingToSave()
{
    int sent = 0;
    connect(m_table.get(), &SelRecTable::SaveRecs, this, [&] { ++sent; });
    for (const auto command : {&SelRecTable::SaveRecsToFile, &SelRecTable::SaveRecsToASCIIFile}) {
        ScopedPrompts prompts;
        prompts.press(QMessageBox::Ok);
        (m_table.get()->*command)();
        QCOMPARE(prompts.seen.value(0).text,
            QStringLiteral("Сохранять нечего: в таблице не выбрано ни одной записи."));
    }
    add({});
    ScopedPrompts prompts;
    prompts.chooseFile({}); // cancelled: no box, no file
    m_table->SaveRecsToFile();
    QCOMPARE(sent, 0);
    QVERIFY(!SLEEP);
}

void SaveCommandsTest::savesTheCheckedRows()
{
    for (const int channel : {1, 2, 12})
        add({channel});
    checkRows({0, 2});
    writeRecordings();
    const ScopedPrompts::Seen last = save();
    QCOMPARE(files(),
        QStringList({"260301_01.dat", "260301_01.inf", "260301_12.dat", "260301_12.inf", "260302_01.dat",
            "260302_01.inf", "260302_12.dat", "260302_12.inf"}));
    QCOMPARE(last.title, QStringLiteral("Сохранение записи"));
    QCOMPARE(last.text,
        QStringLiteral("Запись успешно сохранена в каталоге %1\nСохранено записей: 2").arg(m_folder->path()));
    QCOMPARE(m_icon, QMessageBox::Information);
    QCOMPARE(m_savePath, m_folder->path());
    checkRows({});
    m_rows->setCurrentCell(1, 2);
    save();
    QCOMPARE(files("*_02.inf").size(), 2);
}

void SaveCommandsTest::takenNames()
{
    add({3});
    writeRecordings();
    save();
    QVERIFY(QFile::remove(m_folder->filePath("260301_03.inf"))); // the second day is taken still
    const ScopedPrompts::Seen second = save({QMessageBox::No});
    QVERIFY2(second.text.contains(" под именами с суффиксом (1)\n"), qPrintable(second.text));
    QCOMPARE(files("*_(1).*").size(), 4);
    const ScopedPrompts::Seen third = save({QMessageBox::No});
    QVERIFY(third.text.contains("(2)"));
    QCOMPARE(files("*_(2).inf").size(), 2);
    const QStringList before = files();
    {
        QTemporaryDir other;
        ScopedPrompts prompts;
        prompts.chooseFile(m_folder->path());
        prompts.press(QMessageBox::Yes);
        prompts.chooseFile(other.path());
        prompts.press(QMessageBox::Ok);
        m_table->SaveRecsToFile();
        QVERIFY(QFile::exists(other.filePath("260302_03.dat")));
        QCOMPARE(prompts.seen.at(1).text,
            QStringLiteral("В выбранном каталоге уже содержатся файлы данных за выбранные даты.\nВы можете "
                           "выбрать другой каталог или сохранить выбранные записи под другим именем."));
        QCOMPARE(prompts.seen.at(1).buttons,
            QStringList({"Выбрать другую папку", "Сохранить под другим именем", "Отменить"}));
    }
    ScopedPrompts prompts;
    prompts.chooseFile(m_folder->path());
    prompts.press(QMessageBox::Cancel);
    m_table->SaveRecsToFile();
    QCOMPARE(files(), before);
}

void SaveCommandsTest::numberGrowsWithinOneCommand()
{
    for (int i = 0; i < 3; ++i)
        add({7});
    writeRecordings();
    const ScopedPrompts::Seen last = save({QMessageBox::No});
    QVERIFY2(last.text.contains("(2)") && last.text.endsWith(": 3"), qPrintable(last.text));
    QCOMPARE(
        files("260301_07*.inf"), QStringList({"260301_07.inf", "260301_07_(1).inf", "260301_07_(2).inf"}));
}

void SaveCommandsTest::contextMenuSavesItsRow()
{
    add({1});
    add({2});
    m_rows->setCurrentCell(1, 2);
    writeRecordings();
    ScopedPrompts prompts;
    prompts.chooseFile(m_folder->path());
    prompts.press(QMessageBox::Ok);
    QAction* action = m_rows->actions().at(1);
    QCOMPARE(action->text(), QStringLiteral("Сохранить запись в файл"));
    action->trigger();
    QCOMPARE(files("*.inf"), QStringList({"260301_02.inf", "260302_02.inf"}));
}

void SaveCommandsTest::failures_data()
{
    QTest::addColumn<bool>("receiver");
    QTest::addColumn<int>("blocked"); // channel whose data file cannot be opened
    QTest::addColumn<QString>("told");
    QTest::addColumn<QString>("end");
    QTest::newRow("nobody answers") << false << 0 << "запись не принята к сохранению"
                                    << "Ни одна запись не сохранена.";
    QTest::newRow("one of two") << true << 1
                                << "Clock - Maser (1): Ошибка при открытии dat-файла. Файл не сохранён!"
                                << "Сохранено записей: 1";
    QTest::newRow("interval") << true << 0 << "не равен целому числу секунд"
                              << "с точностью до секунды.";
}

void SaveCommandsTest::failures()
{
    QFETCH(const bool, receiver);
    QFETCH(const int, blocked);
    QFETCH(const QString, told);
    QFETCH(const QString, end);
    const bool fails = !receiver || blocked > 0;
    add({1});
    add({2, 100, 2, 1.0, fails ? 1.0 : 0.5});
    if (receiver)
        writeRecordings();
    if (blocked > 0)
        QVERIFY(QDir(m_folder->path()).mkdir("260301_01.dat"));
    const ScopedPrompts::Seen last = save();
    QVERIFY2(last.text.contains(told) && last.text.endsWith(end), qPrintable(last.text));
    QCOMPARE(m_icon, fails ? QMessageBox::Critical : QMessageBox::Information);
}

void SaveCommandsTest::stopped()
{
    for (const int channel : {1, 2, 3})
        add({channel});
    int sent = 0;
    answer([&](Record*) {
        const auto* stop = m_table->findChild<QAbstractButton*>("stopBtn");
        if (++sent < 2)
            return QString();
        if (m_table->stopAsked(0.5) || !stop->isVisible())
            return QStringLiteral("too early");
        press("stopBtn");
        return m_table->stopAsked(0.6) ? QStringLiteral("stopped") : QString();
    });
    const ScopedPrompts::Seen last = save();
    QCOMPARE(sent, 2);
    QVERIFY2(last.text.startsWith("Сохранение прервано") && last.text.endsWith("записей: 1"),
        qPrintable(last.text));
    QCOMPARE(m_icon, QMessageBox::Warning);
    QVERIFY(!SLEEP && m_rows->isEnabled());
}

void SaveCommandsTest::liveRecord()
{
    add({1, 100, 1});
    Record& row = m_table->load_record[0];
    row.dyn_t = {100.0, 101.0};
    row.dyn_x = {5.0, 6.0};
    row.dyn_n_cnt = 2;
    Record empty;
    m_table->addRecord(&empty);
    QVector<double> written;
    answer([&](Record* rec) {
        written = samplesOf(rec->x);
        return QString();
    });
    const ScopedPrompts::Seen last = save();
    QCOMPARE(written.mid(100), QVector<double>({5.0, 6.0}));
    QVERIFY2(last.text.contains("в записи нет отсчетов"), qPrintable(last.text));
}

void SaveCommandsTest::asText()
{
    add({1});
    add({2});
    m_rows->setCurrentCell(1, 2);
    QVector<const Record*> sent;
    connect(m_table.get(), &SelRecTable::SaveToASCII, this, [&](Record* rec) { sent << rec; });
    QAction* action = m_rows->actions().at(0);
    QCOMPARE(action->text(), QStringLiteral("Сохранить запись в ASCII-файл"));
    {
        ScopedPrompts prompts;
        prompts.press(QMessageBox::Ok);
        action->trigger();
        QCOMPARE(prompts.seen.value(0).text,
            QStringLiteral(" Перед сохранением в ASCII-файл записи следует обработать! "));
    }
    checkRows({1});
    press("processBtn");
    action->trigger();
    QCOMPARE(sent, QVector<const Record*>({&m_table->record[0]}));
}

void SaveCommandsTest::readsOn_data()
{
    QTest::addColumn<int>("days"); // of what is read anew, after 2 days
    QTest::addColumn<double>("factor");
    QTest::addColumn<double>("interval");
    QTest::addColumn<bool>("turned"); // the row, by the user
    QTest::addColumn<bool>("taken");
    QTest::addColumn<QString>("told");
    QTest::newRow("longer") << 3 << 1.0 << 1.0 << false << true << "";
    QTest::newRow("longer than a turned one") << 3 << 1.0 << 1.0 << true << true << "";
    QTest::newRow("the same") << 2 << 1.0 << 1.0 << false << false << "";
    QTest::newRow("shorter") << 1 << 1.0 << 1.0 << false << false << "";
    QTest::newRow("of other values") << 3 << 2.0 << 1.0 << false << false << "другая запись";
    QTest::newRow("of another interval") << 3 << 1.0 << 2.0 << false << false << "другая запись";
    QTest::newRow("nothing") << 0 << 1.0 << 1.0 << false << false << "не прочитана";
}

void SaveCommandsTest::readsOn()
{
    QFETCH(const int, days);
    QFETCH(const double, factor);
    QFETCH(const double, interval);
    QFETCH(const bool, turned);
    QFETCH(const bool, taken);
    QFETCH(const QString, told);
    for (int i = 0; i < SelRecTable::maxRecords; ++i) // no room for a further row
        add({i + 1});
    checkRows({4});
    m_rows->setCurrentCell(4, 2);
    if (turned)
        press("RotateRecord_Btn");
    m_rows->item(4, 3)->setText("Rubidium");
    const quint16 id = m_table->load_record[4].RecID;
    connect(m_table.get(), &SelRecTable::updRecords, this,
        [&](const QString& path, const QDateTime& start, int channel, double kdec) {
            QCOMPARE(path, QStringLiteral("/recordings"));
            QCOMPARE(start, QDateTime(QDate(2026, 3, 1), QTime(0, 0)));
            QCOMPARE(kdec, 1.0);
            for (int part = 0; part < 2 && days > 0; ++part) { // the first is another recording
                Record read;
                fill(read, {channel, 100, days, factor, interval});
                if (part == 0)
                    read.start = read.start.addSecs(-7200);
                m_table->addRecord(&read);
            }
        });
    QSignalSpy hidden(m_table.get(), &SelRecTable::hideWindows_forUpdRec);
    ScopedPrompts prompts;
    if (!told.isEmpty())
        prompts.press(QMessageBox::Ok);
    press("updRecsBtn");
    QVERIFY2(
        told.isEmpty() || prompts.seen.value(0).text.contains(told), qPrintable(prompts.seen.value(0).text));
    QCOMPARE(m_table->free_row, int(SelRecTable::maxRecords));
    Record& row = m_table->load_record[4];
    QCOMPARE(dayLengthsOf(row), QVector<int>(taken ? 3 : 2, 100));
    QCOMPARE(row.x[199], (turned ? -1e-9 : 1e-9) * 86500);
    QCOMPARE(row.stop.date(), QDate(2026, 3, taken ? 3 : 2));
    QCOMPARE(m_rows->item(4, 11)->text(), QString::number(row.n_cnt));
    QCOMPARE(row.meas_sig, QStringLiteral("Rubidium"));
    QCOMPARE(row.ref_sig, turned ? QStringLiteral("Clock") : QStringLiteral("Maser"));
    QCOMPARE(row.RecID, id);
    QCOMPARE(hidden, QList<QList<QVariant>>({{true}, {false}}));
}

void SaveCommandsTest::readsOnFromTheLastRow()
{
    auto* button = m_table->findChild<QAbstractButton*>("updRecsBtn");
    QVERIFY(!button->isEnabled());
    for (int i = 0; i < 4; ++i)
        add({i + 1});
    QVERIFY(button->isEnabled());
    m_table->load_record[1].path.clear();
    m_table->load_record[2].dynamic = true;
    QVector<int> channels;
    connect(m_table.get(), &SelRecTable::updRecords, this,
        [&](const QString&, const QDateTime&, int channel, double) { channels << channel; });
    {
        ScopedPrompts prompts;
        prompts.press(QMessageBox::Ok);
        button->click();
    }
    QCOMPARE(channels, QVector<int>({4, 1}));
    checkRows({1, 2});
    ScopedPrompts prompts;
    prompts.press(QMessageBox::Ok);
    button->click();
    QVERIFY(prompts.seen.value(0).text.startsWith("Обновлять нечего"));
}

/// Where the texts of the buttons do not fit, none is cut off.
void SaveCommandsTest::narrowWindow()
{
    QWidget area; // in which a window may be narrower than it wants to be
    m_table->setParent(&area);
    const auto own = qScopeGuard([this] { m_table->setParent(nullptr); });
    area.show();
    m_table->show();
    for (const int width : {1600, 500, 1600}) {
        m_table->resize(width, 500);
        const QString wanted = width > 500 ? QStringLiteral("Обновить") : QString();
        QTRY_COMPARE(m_table->findChild<QAbstractButton*>("updRecsBtn")->text(), wanted);
        QCOMPARE(
            m_table->findChild<QAbstractButton*>("updRecsBtn")->accessibleName(), QStringLiteral("Обновить"));
    }
}

QTEST_MAIN(SaveCommandsTest)
#include "tst_savecommands.moc"
