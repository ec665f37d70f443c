#include "load/openfileglobform.h"
#include "resources/resources.h"
#include "samples/recording.h"
#include "store/core/mapstruct.h"
#include "store/schedule.h"
#include "support/near.h"
#include "support/scopedprompts.h"
#include "tablewindow.h"

#include <QDateEdit>
#include <QDialogButtonBox>
#include <QDir>
#include <QDropEvent>
#include <QGraphicsView>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QPushButton>

/// A directory of recordings becomes rows of the table, in the real windows, by mouse and keys.
class RecordingToRowTest : public QObject, private TableWindow {
    Q_OBJECT
private slots:
    void initTestCase() { initResources(); }
    void init();
    void cleanup() { close(); }
    void chosenOnTheChart();
    void readOn();
    void droppedBesideTheTable();

private:
    OpenFileGlobForm* dialog() { return m_window->findChild<OpenFileGlobForm*>(); }
    void write(int channel, int lastHour, bool finished);
    void showChart();
    void pressSegment(int segment, Qt::KeyboardModifiers modifiers = {});

    QString m_directory;
    const QDate m_day{2024, 5, 6};
};

void RecordingToRowTest::init()
{
    open();
    m_directory = m_home->file(QStringLiteral("rec"));
    QVERIFY(QDir().mkpath(m_directory));
}

/// A recording from 10 o'clock on, a sample each minute with its mark as the value.
void RecordingToRowTest::write(int channel, int lastHour, bool finished)
{
    RecordingWriter::Stretch stretch;
    stretch.channel = channel;
    stretch.start = QDateTime(m_day, QTime(10, 0));
    stretch.stop = QDateTime(m_day, QTime(lastHour, 0));
    stretch.interval = 60;
    stretch.finished = finished;
    stretch.value = [channel](qint64 mark) { return double(mark + channel); };
    QVERIFY(RecordingWriter{QDir(m_directory)}.write(stretch));
}

void RecordingToRowTest::showChart()
{
    press(QStringLiteral("addRecBtn"));
    QVERIFY(dialog()->isVisible());
    QTest::mousePress(child<QPushButton>(QStringLiteral("FromFolderButton")), Qt::LeftButton);
    auto* path = child<QLineEdit>(QStringLiteral("kat_LE_Path"));
    path->clear();
    QTest::keyClicks(path, m_directory);
    child<QDateEdit>(QStringLiteral("kat_DE_Date1"))->setDate(m_day);
    child<QDateEdit>(QStringLiteral("kat_DE_Date2"))->setDate(m_day);
    press(QStringLiteral("kat_deselectAllChanBtn"));
    auto* head = child<QTableWidget>(QStringLiteral("kat_chanTab"))->horizontalHeader();
    for (const int channel : {1, 3})
        QTest::mouseClick(head->viewport(), Qt::LeftButton, {},
            QPoint(head->sectionViewportPosition(channel) + 5, head->height() / 2));
    press(QStringLiteral("Btn_ViewRecList"));
    QCOMPARE(int(dialog()->srcMode), 4);
}

void RecordingToRowTest::pressSegment(int segment, Qt::KeyboardModifiers modifiers)
{
    auto* view = child<QGraphicsView>(QStringLiteral("graphicsView"));
    QTest::mouseClick(view->viewport(), Qt::LeftButton, modifiers,
        view->mapFromScene(dialog()->sch->rects.at(segment).center()));
}

void RecordingToRowTest::chosenOnTheChart()
{
    write(2, 12, true);
    write(4, 11, true);
    showChart();
    auto* load = child<QPushButton>(QStringLiteral("pushButtonLoad"));
    QVERIFY(!load->isEnabled());
    pressSegment(0);
    pressSegment(1, Qt::ControlModifier);
    QCOMPARE(dialog()->sch->selected, QList<int>({0, 1}));
    QVERIFY(load->isEnabled());
    QTest::mouseClick(load, Qt::LeftButton);
    QVERIFY(!dialog()->isVisible() && !SLEEP);
    QCOMPARE(m_table->free_row, 2);
    QVERIFY(!m_rows->isRowHidden(1) && m_rows->isRowHidden(2));
    const Record& first = m_table->load_record[0];
    QCOMPARE(int(first.n_cnt), 121);
    QCOMPARE(first.ch, 2);
    QCOMPARE(first.path, m_directory);
    NEAR(m_table->load_record[0].x[120], -(12.0 * 3600 + 2)); // this kind of device turns the sign
    QCOMPARE(int(m_table->load_record[1].n_cnt), 61);

    // Again from the menu of recent records, where the last one stands first.
    auto* recent = child<QMenu>(QStringLiteral("RecentRecs"));
    QVERIFY(recent->isEnabled());
    child<QAction>(QStringLiteral("actionRec1"))->trigger();
    QCOMPARE(m_table->free_row, 3);
    QCOMPARE(int(m_table->load_record[2].n_cnt), 61);
    QCOMPARE(m_table->load_record[2].ch, 4);
}

void RecordingToRowTest::readOn()
{
    write(2, 11, false);
    write(4, 11, true);
    showChart();
    pressSegment(0);
    press(QStringLiteral("pushButtonLoad"));
    QCOMPARE(int(m_table->load_record[0].n_cnt), 61);
    for (const char* file : {"/240506_02.inf", "/240506_02.dat"})
        QVERIFY(QFile::remove(m_directory + QLatin1String(file)));
    write(2, 14, true);
    checkRows({0});
    press(QStringLiteral("updRecsBtn"));
    QCOMPARE(m_table->free_row, 1);
    QCOMPARE(int(m_table->load_record[0].n_cnt), 241);
    QVERIFY(!SLEEP);

    ScopedPrompts prompts;
    const QString saved = m_home->file(QStringLiteral("saved"));
    QVERIFY(QDir().mkpath(saved));
    prompts.chooseFile(saved);
    prompts.press(QDialogButtonBox::Ok);
    m_table->SaveRecsToFile();
    QVERIFY2(prompts.seen.last().text.startsWith(QStringLiteral("Запись успешно сохранена")),
        qPrintable(prompts.seen.last().text));
    bool ok = false;
    const InfType inf = dialog()->map->ReadInf(saved + QStringLiteral("/240506_02.inf"), 0, ok);
    QVERIFY(ok);
    QCOMPARE(inf.endOffset, 241 * datSampleSize);
}

void RecordingToRowTest::droppedBesideTheTable()
{
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(m_directory)});
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(m_window.get(), &enter);
    QVERIFY(enter.isAccepted());
    QDropEvent drop(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(m_window.get(), &drop);
    QVERIFY(dialog()->isVisible());
    QCOMPARE(int(dialog()->srcMode), 1);
    QCOMPARE(child<QLineEdit>(QStringLiteral("kat_LE_Path"))->text(), m_directory);
}

QTEST_MAIN(RecordingToRowTest)
#include "tst_recordingtorow.moc"
