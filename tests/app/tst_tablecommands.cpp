#include "app/tablewindow.h"
#include "resources/resources.h"
#include "support/near.h"
#include "support/scopedprompts.h"

#include <QApplication>
#include <QComboBox>
#include <QDropEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QToolButton>
#include <QUrl>

#include <algorithm>
#include <cmath>

/// The commands of the record table, by its own buttons and keys.
class TableCommandsTest : public QObject, private TableWindow {
    Q_OBJECT
private slots:
    void initTestCase() { initResources(); }
    void init() { open(); }
    void cleanup() { close(); }
    void commands_data();
    void commands();
    void difference();
    void merge();
    void limits();
    void spectra();
    void deletion();
    void keys();
    void drop();
    void cut();
    void cleaning_data();
    void cleaning();
};

void TableCommandsTest::commands_data()
{
    const char two[] = "Необходимо отметить две записи!";
    const char intervals[] = "Записи должны иметь одинаковый коэфициент прореживания!";
    const char apart[] = "Выбранные записи не пересекаются по времени!";
    const char counts[] =
        "Разница в количестве отсчетов между записями на общем интервале времени превышает 10";
    const char never[] = "Отсчеты выбранных записей нигде не совпадают по времени!";
    const char others[] =
        "Вычитаются записи с разными опорными и измеряемыми сигналами!\nВозможно в одной из "
        "записей следует поменять сигналы местами?";
    const char names[] = "Записи должны быть сделны для одинаковых сигналов!\nПродолжить объединение?";
    const char select[] =
        "Для вычисления кросс-вариаций необходимо выбрать две записи в перекрывающиеся моменты времени с "
        "одинаковым опорным сигналом. Кроме этого записи должны иметь одинаковый интервал времени между "
        "отсчетами.";
    const char hat[] =
        "Для метода трёх генераторов нужны записи трёх генераторов: A - B и A - C, или также B - C.";
    const auto detach = [](const char* text) {
        return QString::fromUtf8(text)
            + QStringLiteral("\nДля подробной обработки данных отключите динамическое обновление в таблице "
                             "Управления записями.");
    };
    QTest::addColumn<QString>("records");
    QTest::addColumn<QString>("command"); // button, boxes
    QTest::addColumn<QStringList>("told");
    QTest::addColumn<int>("rowsAfter");
    QTest::addColumn<int>("results"); // of stability
    QTest::addColumn<int>("group");
    QTest::addColumn<int>("answer"); // to the first question
    const auto row = [](const char* records, const char* command, const QStringList& told, int rowsAfter,
                         int results = 0, int group = 0, int answer = QMessageBox::Ok) {
        QTest::addRow("%s: %s %d %d", command, records, group, answer)
            << QString::fromUtf8(records) << QString::fromUtf8(command) << told << rowsAfter << results
            << group << answer;
    };
    row("BA BA BA", "diffRecBtn", {two}, 3);
    row("BA BAi2", "diffRecBtn", {intervals}, 2);
    row("BA BA+300", "diffRecBtn", {apart}, 2);
    row("BA BA+299", "diffRecBtn", {apart}, 2);
    row("BA BA+0.5", "diffRecBtn", {never}, 2);
    row("BA BAw10", "diffRecBtn", {}, 3);
    row("BA BAw11", "diffRecBtn", {counts}, 3);
    row("BA CA", "diffRecBtn", {others}, 3);
    row("BA BAn0", "diffRecBtn", {apart}, 2);
    row("BA BA BA", "mergeRecBtn", {two}, 3);
    row("BA CA+300", "mergeRecBtn", {names}, 2, 0, 0, QMessageBox::No);
    row("BA CA+300", "mergeRecBtn", {names}, 3, 0, 0, QMessageBox::Yes);
    row("BA BA+300k1", "mergeRecBtn", {"Невозможно объединение записей с разными типами данных!"}, 2);
    row("BA BA+300i2", "mergeRecBtn", {QString::fromUtf8(intervals) + QLatin1Char(' ')}, 2);
    row("BA BA+299", "mergeRecBtn", {"Выбранные записи не должны пересекаться во времени!"}, 2);
    row("BA BAn0", "mergeRecBtn", {"В одной из записей нет отсчетов!"}, 2);
    row("BA", "processBtn crossBox", {select}, 1);
    row("BA CA BC", "processBtn crossBox", {select}, 3);
    row("BA AB", "processBtn crossBox", {}, 2, 2);
    row("BA CA", "processBtn crossBox", {}, 2, 3);
    row("AA AA", "processBtn crossBox", {}, 2, 1);
    row("BA DC", "processBtn crossBox",
        {"Выбранные записи содержат разные сигналы, кросс-обработка невозможна!"}, 2);
    row("BA BA+300", "processBtn crossBox", {apart}, 2);
    row("BA BAi2", "processBtn crossBox", {intervals}, 2);
    row("BA BA+0.5", "processBtn crossBox", {never}, 2);
    row("BA BAw10", "processBtn crossBox", {}, 2, 2);
    row("BA BAw11", "processBtn crossBox", {counts}, 2, 2);
    row("BA BA", "processBtn crossBox",
        {"Кросс-обработка возможна только при вычислении характеристик стабильности"}, 2, 2, 1);
    row("BA BA", "processBtn crossBox threeCornHatBox", {}, 2, 2, 2);
    row("BA BAk1", "processBtn crossBox", {"Кросс-обработка возможна только для записей фазовых измерений."},
        2, 2);
    row("BAn120i3600 BAn120i3600l1", "processBtn crossBox",
        {detach("Кросс-обработка возможна только для статических записей.")}, 2, 2);
    row("BA CA BC", "processBtn threeCornHatBox", {}, 3, 3);
    row("BA AB", "processBtn threeCornHatBox", {hat}, 2);
    row("AA AA", "processBtn threeCornHatBox", {hat}, 2);
    row("BA CA CA", "processBtn threeCornHatBox", {hat}, 3);
    row("BA CA BC+300", "processBtn threeCornHatBox", {apart}, 3);
    row("BAk1", "processBtn trendBox",
        {detach("Исключение дрейфа доступно только при обработке статических записей.")}, 1, 1);
    row("BAn120i3600l1", "processBtn spectrBox",
        {detach("Вычисление спектра возможно только для статических записей.")}, 1, 1);
    row("BAn9 BAn10", "processBtn",
        {"Следующие записи были исключены из обработки:\nB - A (1)\nСлишком мало точек!"}, 2, 1);
}

void TableCommandsTest::commands()
{
    QFETCH(QString, records);
    QFETCH(QString, command);
    QFETCH(QStringList, told);
    QFETCH(int, rowsAfter);
    QFETCH(int, results);
    QFETCH(int, group);
    QFETCH(int, answer);
    add(records);
    check(command.section(QLatin1Char(' '), 1));
    child<QComboBox>("selVarBox")->setCurrentIndex(group);
    {
        ScopedPrompts prompts;
        for (int i = 0; i < told.size(); ++i)
            prompts.press(i == 0 ? answer : QMessageBox::Ok);
        press(command.section(QLatin1Char(' '), 0, 0));
        QStringList texts;
        for (const ScopedPrompts::Seen& said : qAsConst(prompts.seen))
            texts << said.text;
        QCOMPARE(texts, told);
    }
    QCOMPARE(m_table->free_row, rowsAfter);
    QCOMPARE(m_table->rows.size(), results);
    for (int row = 0; row < results; ++row)
        QVERIFY(!m_table->avarRes[size_t(row)].empty());
    QVERIFY(!SLEEP && m_rows->isEnabled());
    const int opened = openResults();
    QCOMPARE(
        m_window->findChildren<AvarForm*>().size() + m_window->findChildren<TableForm*>().size(), opened);
    while (m_table->free_row > 0) { // with the windows open
        checkRows({0});
        press("delRecBtn");
    }
    QCOMPARE(m_table->recCount, 0);
    QCOMPARE(openResults(), 0);
}

void TableCommandsTest::difference()
{
    add("BA CA+100 BA");
    checkRows({0, 1});
    ScopedPrompts prompts;
    prompts.press(QMessageBox::Ok);
    press("diffRecBtn");
    const Record& made = m_table->load_record[3];
    QCOMPARE(made.n_cnt, qint64(200));
    QCOMPARE(made.meas_sig + made.ref_sig, QStringLiteral("CB"));
    QCOMPARE(made.start, m_table->load_record[1].start);
    QVERIFY(made.RecID != 0 && made.RecID != m_table->load_record[2].RecID);
    for (int i = 0; i < 200; ++i)
        NEAR(m_table->load_record[3].x[i], noise(i) - noise(i + 100), 0.0, 1e-24);
    QVERIFY(!m_rows->isRowHidden(3) && m_rows->item(3, 11)->text() == QLatin1String("200"));
    checkRows({0, 2}); // of the same signals: the result of zeros bears their names
    press("diffRecBtn");
    QCOMPARE(values(4), QVector<double>(300, 0.0));
    QCOMPARE(m_table->load_record[4].ref_sig, QStringLiteral("A"));
    while (m_table->free_row < SelRecTable::maxRecords)
        add("BAn2");
    prompts.press(QMessageBox::Ok);
    press("diffRecBtn");
    QCOMPARE(prompts.seen.last().text,
        QStringLiteral("Запись не может быть добавлена, \nт.к превышено максимальное количество записей в "
                       "таблице, равное 32"));
}

void TableCommandsTest::merge()
{
    add("BA+1000 BA");
    Record& later = m_table->load_record[0];
    for (int i = 0; i < later.n_cnt; ++i)
        later.x[i] += 1e-3;
    auto* menu = child<QToolButton>("mergeRecBtn")->menu();
    QVERIFY(menu->actions().at(1)->isChecked());
    const struct {
        int mode, answer;
        double joint;
        bool smooth;
    } cases[] = {{0, 0, 300.0, true}, {1, 0, 1000.0, true}, {2, QMessageBox::No, 1000.0, false},
        {2, QMessageBox::Yes, 1000.0, true}};
    for (const auto& of : cases) {
        checkRows({0, 1});
        menu->actions().at(of.mode)->trigger();
        ScopedPrompts prompts;
        if (of.answer)
            prompts.press(of.answer);
        press("mergeRecBtn");
        const QString question = prompts.seen.value(0).text;
        QCOMPARE(
            question.startsWith(QStringLiteral("Между записями слишком большой разрыв по фазе!\nСдвинуть")),
            of.answer != 0);
        Record& made = m_table->load_record[m_table->free_row - 1];
        QCOMPARE(made.n_cnt, qint64(600));
        NEAR(made.t[300], of.joint);
        QCOMPARE(std::abs(made.x[300] - made.x[299]) < 1e-6, of.smooth);
        QCOMPARE(made.start, m_table->load_record[1].start);
    }
    QCOMPARE(m_table->free_row, 6);
}

void TableCommandsTest::limits()
{
    add("BA BAk1 BAn120i3600l1");
    m_table->load_record[0].x[100] += 1e-3;
    m_table->load_record[1].x[100] += 5.0;
    QCOMPARE(m_rows->item(1, 9)->text(), QStringLiteral("100"));
    for (const char* bad : {"much", "", "-1", "nan", "inf", "1e999"}) {
        m_rows->item(0, 9)->setText(QString::fromLatin1(bad));
        m_rows->item(1, 10)->setText(QString::fromLatin1(bad));
        QCOMPARE(m_rows->item(0, 9)->text(), QStringLiteral("1"));
        QCOMPARE(m_rows->item(1, 10)->text(), QStringLiteral("100"));
    }
    const auto highest = [this](int i) {
        const QVector<double> all = samplesOf(m_table->record[size_t(i)].x);
        return *std::max_element(all.begin(), all.end());
    };
    press("processBtn"); // the defaults filter nothing
    QVERIFY(highest(0) > 1e-4 && highest(1) > 4.0);
    m_rows->item(0, 9)->setText(QStringLiteral("1e-6"));
    m_rows->item(1, 9)->setText(QStringLiteral("1"));
    m_rows->item(2, 10)->setText(QStringLiteral("1e-12"));
    ScopedPrompts prompts;
    prompts.press(QMessageBox::Ok);
    press("processBtn");
    QVERIFY(prompts.seen.at(0).text.startsWith(QStringLiteral(
        "Применение лимитов на разность частот и изменение разности частот\nвозможно только для ")));
    QVERIFY(highest(0) < 1e-6 && highest(1) < 1.1);
    QCOMPARE(samplesOf(m_table->record[2].x), values(2));
    QVERIFY2(values(0).at(100) > 1e-4, "the loaded record stays as it is");
    m_rows->selectRow(0);
    press("MoveRecordDown");
    QCOMPARE(m_rows->item(1, 9)->text(), QStringLiteral("1e-6")); // the limits go with their record
}

void TableCommandsTest::spectra()
{
    add("BAn3000 CAn3000 BCn3000");
    child<QLineEdit>("freqlineEdit")->setText(QStringLiteral("-3"));
    for (const char* boxes : {"spectrBox", "spectrBox threeCornHatBox"}) {
        check(boxes);
        press("processBtn");
        press("spectrGrBtn");
        child<QToolButton>("spectrGrBtn")->menu()->actions().at(1)->trigger();
        child<QToolButton>("spectrTabBtn")->menu()->actions().at(1)->trigger();
    }
    const auto graphs = m_window->findChildren<AvarForm*>();
    QCOMPARE(graphs.size(), 4);
    for (const AvarForm* graph : graphs)
        QCOMPARE(graph->curveCount, 3);
    QCOMPARE(child<QLineEdit>("freqlineEdit")->text(), QStringLiteral("5"));
    checkRows({0});
    press("delRecBtn");
    QCOMPARE(openResults(), 1); // what rests on the three is gone; the fits of two are left
}

void TableCommandsTest::deletion()
{
    add("BA BAn301k1 BAn302 BAn303k1");
    m_rows->item(2, 3)->setText(QStringLiteral("Kept"));
    m_rows->item(2, 9)->setText(QStringLiteral("0.5"));
    m_rows->item(2, 3)->setBackground(Qt::green);
    press("processBtn");
    openResults();
    m_table->uncheckAllRec();
    m_rows->item(1, 0)->setCheckState(Qt::Checked);
    m_rows->item(3, 0)->setCheckState(Qt::Checked);
    const quint16 kept = m_table->load_record[2].RecID;
    const auto curve = m_table->avarRes[2];
    press("delRecBtn");
    QCOMPARE(m_table->free_row, 2);
    QCOMPARE(m_table->load_record[1].RecID, kept);
    QCOMPARE(m_table->load_record[1].n_cnt, qint64(302));
    QCOMPARE(m_rows->item(1, 3)->text() + m_rows->item(1, 9)->text(), QStringLiteral("Kept0.5"));
    QCOMPARE(m_rows->item(1, 3)->background().color(), QColor(Qt::green));
    QCOMPARE(m_rows->item(1, 0)->checkState(), Qt::Unchecked);
    QVERIFY(m_rows->isRowHidden(2) && !m_rows->item(2, 3) && !m_rows->cellWidget(2, 6));
    QCOMPARE(m_table->rows.size(), 2);
    QCOMPARE(m_table->avarRes[1], curve);
    qobject_cast<QComboBox*>(m_rows->cellWidget(1, 6))->setCurrentIndex(3);
    QCOMPARE(int(m_table->load_record[1].dataType), 3);
    QCOMPARE(int(m_table->load_record[0].dataType), 0);
    press("delRecBtn"); // with nothing checked
    QCOMPARE(m_table->free_row, 2);
}

void TableCommandsTest::keys()
{
    add("BAn20 BAn30 BAn40");
    QApplication::setActiveWindow(m_window.get());
    m_rows->setFocus();
    const auto type = [this](Qt::Key key, Qt::KeyboardModifiers with = Qt::NoModifier) {
        QTest::keyClick(m_rows, key, with);
        QString rows;
        for (int row = 0; row < m_table->free_row; ++row) {
            rows += QString::number(m_table->load_record[row].n_cnt);
            rows += m_rows->item(row, 0)->checkState() == Qt::Checked ? '+' : '-';
        }
        return rows + QString::number(m_rows->currentRow());
    };
    m_rows->selectRow(1);
    QCOMPARE(type(Qt::Key_Space), QStringLiteral("20+30-40+1"));
    QCOMPARE(type(Qt::Key_Up, Qt::ControlModifier), QStringLiteral("30-20+40+0"));
    QCOMPARE(type(Qt::Key_Up, Qt::ControlModifier), QStringLiteral("30-20+40+0"));
    QCOMPARE(type(Qt::Key_Down, Qt::ControlModifier), QStringLiteral("20+30-40+1"));
    QCOMPARE(type(Qt::Key_A, Qt::ControlModifier), QStringLiteral("20+30+40+1"));
    QCOMPARE(type(Qt::Key_Space), QStringLiteral("20+30-40+1"));
    QCOMPARE(type(Qt::Key_Delete), QStringLiteral("20+40+1"));
    QCOMPARE(type(Qt::Key_Delete), QStringLiteral("20+0"));
    QCOMPARE(type(Qt::Key_Down, Qt::ControlModifier), QStringLiteral("20+0"));
    for (const Qt::Key key : {Qt::Key_Delete, Qt::Key_Delete, Qt::Key_Space})
        type(key);
    QCOMPARE(m_table->free_row, 0);
}

void TableCommandsTest::drop()
{
    const QString file = m_home->write(QStringLiteral("clock.txt"), "0 1\n1 2\n");
    const auto dropped = [&](const QUrl& url) {
        QMimeData data;
        data.setUrls({url});
        QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        enter.ignore();
        QApplication::sendEvent(m_rows->viewport(), &enter);
        QDropEvent event(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        event.ignore();
        QApplication::sendEvent(m_rows->viewport(), &event);
        return event.isAccepted() ? child<QLineEdit>("file_LE_Path")->text() : QString();
    };
    QCOMPARE(dropped(QUrl(QStringLiteral("http://example.org/a.txt"))), QString());
    SLEEP = true;
    QCOMPARE(dropped(QUrl::fromLocalFile(file)), QString());
    SLEEP = false;
    QCOMPARE(dropped(QUrl::fromLocalFile(file)), file);
}

void TableCommandsTest::cut()
{
    add("BAn100000 BAk1");
    const quint16 id = m_table->load_record[0].RecID;
    const QString deleted = QStringLiteral(
        "Запись, из которой Вы хотите вырезать кусок, была удалена из таблицы,\n поэтому операция не может "
        "быть выполнена.");
    const auto told = [this](quint16 record, double from, double to) {
        ScopedPrompts prompts;
        prompts.press(QMessageBox::Ok);
        m_table->giveForRec(record, from, to);
        return prompts.seen.value(0).text;
    };
    m_table->giveForRec(id, 86300.0, 86500.0);
    const Record& made = m_table->load_record[2];
    QCOMPARE(m_table->free_row, 3);
    QCOMPARE(made.n_cnt, qint64(201));
    QCOMPARE(made.n_days, 2);
    QCOMPARE(made.start, m_table->load_record[0].start.addSecs(86300));
    QVERIFY(made.RecID != id && made.RecID != 0);
    NEAR(m_table->load_record[2].t[0], 86300.0);
    m_rows->item(0, 0)->setCheckState(Qt::Unchecked);
    QCOMPARE(told(id, 10.0, 20.0), deleted);
    QCOMPARE(told(77, 10.0, 20.0), deleted);
    m_rows->item(0, 0)->setCheckState(Qt::Checked);
    for (const auto& [from, to] : {std::pair(50.0, 20.0), std::pair(std::nan(""), 20.0), std::pair(2e5, 3e5)})
        QCOMPARE(told(id, from, to),
            QStringLiteral("Границы участка в записи не найдены, новая запись не создана."));
    QCOMPARE(m_table->free_row, 3);
    while (m_table->free_row < SelRecTable::maxRecords)
        add("BAn2");
    QVERIFY(told(id, 10.0, 20.0).startsWith(QStringLiteral("Запись не может быть добавлена, \nт.к")));
}

void TableCommandsTest::cleaning_data()
{
    QTest::addColumn<int>("devType");
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("days");
    QTest::addColumn<bool>("on");
    QTest::addColumn<int>("samplesADay");
    QTest::addColumn<double>("first");
    QTest::newRow("repeats of a device") << 0 << 0 << 2 << true << 15 << 0.0;
    QTest::newRow("and of another") << 5 << 0 << 49 << true << 15 << 0.0;
    QTest::newRow("other device") << 3 << 0 << 2 << true << 20 << 0.0;
    QTest::newRow("50 days") << 0 << 0 << 50 << true << 20 << 7.5;
    QTest::newRow("temperature") << 0 << 1 << 2 << true << 20 << 7.5;
    QTest::newRow("off") << 0 << 0 << 2 << false << 20 << 7.5;
}

void TableCommandsTest::cleaning()
{
    QFETCH(int, devType);
    QFETCH(int, type);
    QFETCH(int, days);
    QFETCH(bool, on);
    QFETCH(int, samplesADay);
    QFETCH(double, first);
    std::vector<TestDay> made(static_cast<size_t>(days));
    for (int i = 0; i < 20 * days; ++i) {
        made[size_t(i / 20)].t.push_back(7.5 + i * 4320.0);
        made[size_t(i / 20)].x.push_back(i % 4 == 1 ? noise(i - 1) : noise(i)); // each fourth is a repeat
    }
    Record record;
    fillDays(record, made, 4320.0);
    record.devType = quint16(devType);
    record.dataType = quint16(type);
    removeF0Vals = on;
    m_table->addRecord(&record);
    Record& added = m_table->load_record[0];
    QCOMPARE(dayLengthsOf(added), QVector<int>(days, samplesADay));
    NEAR(added.t[0], first);
    QVERIFY(rises(added.t));
    QCOMPARE(m_rows->item(0, 11)->text(), QString::number(days * samplesADay));
}

QTEST_MAIN(TableCommandsTest)
#include "tst_tablecommands.moc"
