#include "store/schedule.h"

#include "base/globals.h"
#include "record/record.h"
#include "samples/recording.h"
#include "store/core/mapstruct.h"
#include "store/kdecloaddlg.h"
#include "store/myview.h"
#include "support/near.h"
#include "support/scopedprompts.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QToolTip>
#include <QWheelEvent>
#include <qtestspontaneevent.h>

namespace {

const QDate firstDay(2026, 3, 1);
constexpr int days = 3;

QDateTime at(int day, int hour)
{
    return QDateTime(firstDay.addDays(day), QTime(hour, 0));
}

/// A chart over three days: channel 1 with two recordings, channel 2 with one that never ended.
class Chart {
public:
    Chart()
    {
        RecordingWriter writer{QDir(home.path())};
        RecordingWriter::Stretch stretch;
        stretch.interval = 60;
        stretch.start = at(0, 6);
        stretch.stop = at(0, 18);
        writer.write(stretch);
        stretch.start = at(1, 0);
        stretch.stop = at(2, 12);
        writer.write(stretch);
        stretch.channel = 2;
        stretch.start = at(0, 12);
        stretch.stop = at(1, 12);
        stretch.finished = false;
        writer.write(stretch);
        map.readINFFiles(QDir(home.path()), firstDay, QByteArray(1, '\3'), at(10, 0));
        sch.resize(900, 500);
        sch.showSchedule(firstDay, lastDay, QByteArray(1, '\3'), 2, QDir(home.path()));
        QObject::connect(&sch, &schedule::TakeRec, &sch, [this](Record* rec) {
            taken << qMakePair(rec->start, rec->n_cnt);
            busyWhenTaken = SLEEP;
            deleteRecord(rec);
        });
    }

    /// Where a time of a band lies in the view.
    QPoint pixel(int band, const QDateTime& time) const
    {
        return view()->mapFromScene(at(0, 0).secsTo(time), band * 55.0 + 10.0);
    }
    void click(int band, const QDateTime& time, Qt::KeyboardModifiers modifiers = {}) const
    {
        QTest::mouseClick(view()->viewport(), Qt::LeftButton, modifiers, pixel(band, time));
    }
    void turnWheel(int delta, const QPoint& pixel) const
    {
        QWidget* const canvas = view()->viewport();
        QWheelEvent event(pixel, canvas->mapToGlobal(pixel), QPoint(), QPoint(0, delta), Qt::NoButton,
            Qt::NoModifier, Qt::NoScrollPhase, false);
        QSpontaneKeyEvent::setSpontaneous(&event);
        qApp->notify(canvas, &event);
    }
    template <class Widget> Widget* find(const char* name) const { return sch.findChild<Widget*>(name); }
    MyView* view() const { return find<MyView>("graphicsView"); }
    QTableWidget* table() const { return find<QTableWidget>("tableWidget"); }
    QString text(const char* label) const { return find<QLabel>(label)->text(); }
    bool canLoad() const
    {
        return find<QPushButton>("pushButtonLoad")->isEnabled()
            && find<QPushButton>("pBtnLoadDec")->isEnabled();
    }

    const QDate lastDay = firstDay.addDays(days - 1);
    QTemporaryDir home;
    mapStruct map{days, 2};
    schedule sch{nullptr, &map};
    ScopedPrompts prompts;
    QVector<QPair<QDateTime, qint64>> taken;
    bool busyWhenTaken = false;
};

} // namespace

class tst_Schedule : public QObject {
    Q_OBJECT

private slots:
    void index()
    {
        const Chart chart;
        QCOMPARE(chart.map.kinds, QByteArray("ggrc"));
        QCOMPARE(chart.sch.rects.size(), 4);
        QCOMPARE(chart.sch.rects[1], QRectF(86400, 0, 86400 * 1.5, 50));
        QCOMPARE(chart.sch.labels[0].text, QString("H-maser - Cs"));
        QCOMPARE(chart.sch.labels[3].text, QString("..."));
        QCOMPARE(chart.sch.chanLabels[1].text, QString("Канал 2\nчисло записей 2"));
        QCOMPARE(chart.sch.heightY, 110.0);
        QCOMPARE(chart.sch.getChbyInd(1), 1);
        QCOMPARE(chart.text("date1Lbl"), QString("01/03 00:00:00"));
        QCOMPARE(chart.text("date2Lbl"), QString("03/03 23:59:59"));
        QVERIFY(chart.sch.shown);
        QVERIFY(!chart.canLoad());
    }

    void busyChartStays()
    {
        Chart chart;
        SLEEP = true;
        QCOMPARE(chart.sch.refreshSch(firstDay, firstDay, QByteArray(), 1, QDir()), 1);
        QCOMPARE(chart.sch.refreshTab(firstDay, firstDay, QByteArray(), 1, QDir()), 1);
        chart.sch.selected << 0;
        chart.sch.load(1);
        SLEEP = false;
        QCOMPARE(chart.sch.date2, chart.lastDay);
        QVERIFY(chart.taken.isEmpty());
    }

    void clicks()
    {
        Chart chart;
        chart.click(0, at(0, 9));
        QCOMPARE(chart.sch.selected, QList<int>{0});
        QCOMPARE(chart.sch.marks, QList<QRectF>{QRectF(21600, 37.5, 43200, 12.5)});
        QVERIFY(chart.canLoad());
        chart.click(1, at(0, 20));
        QCOMPARE(chart.sch.selected, QList<int>{2});
        chart.click(0, at(1, 9), Qt::ControlModifier);
        QCOMPARE(chart.sch.selected, (QList<int>{2, 1}));
        chart.click(0, at(0, 2)); // no data
        chart.click(1, at(2, 12)); // no file
        QCOMPARE(chart.sch.selected, (QList<int>{2, 1}));
        chart.click(1, at(0, 20), Qt::ControlModifier);
        chart.click(0, at(1, 9), Qt::ControlModifier);
        QVERIFY(chart.sch.selected.isEmpty());
        QVERIFY(!chart.canLoad());
        AcceptScheduleEvents = false;
        chart.click(0, at(0, 9));
        QVERIFY(chart.sch.selected.isEmpty());
    }

    void rubberBand()
    {
        Chart chart;
        QWidget* const canvas = chart.view()->viewport();
        const QPoint from = chart.pixel(0, at(0, 2)), to = chart.pixel(1, at(0, 14));
        QTest::mousePress(canvas, Qt::LeftButton, {}, from);
        for (const QPoint& point : {(from + to) / 2, to}) {
            QMouseEvent move(
                QEvent::MouseMove, point, canvas->mapToGlobal(point), Qt::NoButton, Qt::LeftButton, {});
            qApp->notify(canvas, &move);
        }
        QTest::mouseRelease(canvas, Qt::LeftButton, {}, to);
        QCOMPARE(chart.sch.selected, (QList<int>{0, 2}));
    }

    void keys()
    {
        Chart chart;
        MyView* const view = chart.view();
        QTest::keyClick(view, Qt::Key_A, Qt::ControlModifier);
        QCOMPARE(chart.sch.selected, (QList<int>{0, 1, 2}));
        const double whole = view->secondsPerPixel();
        QTest::keyClick(view, Qt::Key_Plus);
        QVERIFY(view->secondsPerPixel() < whole);
        const double left = view->visibleSeconds().first;
        QTest::keyClick(view, Qt::Key_Right);
        QVERIFY(view->visibleSeconds().first > left);
        QTest::keyClick(view, Qt::Key_Home);
        NEAR(view->secondsPerPixel(), whole);
        QCOMPARE(view->visibleSeconds().first, 0.0);
    }

    void wheelZoomsAboutTheCursor()
    {
        const Chart chart;
        const MyView* const view = chart.view();
        const double before = view->transform().m11();
        const QPoint cursor(600, 20);
        const double under = view->mapToScene(cursor).x();
        chart.turnWheel(240, cursor);
        NEAR(view->transform().m11() / before, 1.21);
        NEAR(view->mapToScene(cursor).x(), under, 0.0, view->secondsPerPixel());
        QVERIFY(chart.text("date1Lbl") > QString("01/03 00:00:00"));
        QVERIFY(chart.text("date2Lbl") < QString("03/03 23:59:59"));
        const QString label = chart.text("date1Lbl");
        view->horizontalScrollBar()->setValue(0);
        QVERIFY(chart.text("date1Lbl") < label);
        chart.turnWheel(-480, cursor);
        NEAR(view->transform().m11() / before, 1.0 / 1.21);
        // Hostile turning ends at limits.
        for (int i = 0; i < 300; ++i)
            chart.turnWheel(12000, cursor);
        QVERIFY(view->secondsPerPixel() > 0.0);
        chart.turnWheel(-1000000, cursor);
        QVERIFY(view->secondsPerPixel() < 100.0 / before);
    }

    void toolTips()
    {
        const Chart chart;
        const auto tipAt = [&chart](const QPoint& point) {
            QTest::mouseMove(chart.view()->viewport(), point);
            QMouseEvent move(QEvent::MouseMove, point, chart.view()->viewport()->mapToGlobal(point),
                Qt::NoButton, Qt::NoButton, {});
            qApp->notify(chart.view()->viewport(), &move);
            return QToolTip::text();
        };
        const QString tip = tipAt(chart.pixel(0, at(1, 9)));
        QVERIFY2(tip.contains("день 2, Канал 1"), qPrintable(tip));
        QVERIFY2(tip.contains("Запись №2 (из 2)"), qPrintable(tip));
        QVERIFY2(tip.contains("02.03.26 00:00:00 - 03.03.26 12:00:00"), qPrintable(tip));
        const QString empty = tipAt(chart.pixel(0, at(0, 2)));
        QVERIFY(empty.contains("день 1, Канал 1") && !empty.contains("Запись"));
    }

    void loading()
    {
        Chart chart;
        QSignalSpy loaded(&chart.sch, &schedule::NewRecLoaded);
        QSignalSpy ended(&chart.sch, &schedule::AllRecsAdded);
        chart.click(0, at(1, 9));
        chart.click(0, at(0, 9), Qt::ControlModifier);
        QTest::mouseClick(chart.find<QPushButton>("pushButtonLoad"), Qt::LeftButton);
        QCOMPARE(chart.taken.size(), 2);
        QCOMPARE(chart.taken[0], qMakePair(at(0, 6), qint64(721))); // in the order of the index
        QCOMPARE(chart.taken[1], qMakePair(at(1, 0), qint64(2161)));
        QVERIFY(chart.busyWhenTaken);
        QCOMPARE(loaded[0][1].toInt(), 1);
        QCOMPARE(loaded[0][2].toString(), QDir(chart.home.path()).absolutePath());
        QCOMPARE(ended.size(), 1);
        QVERIFY(!SLEEP && AcceptScheduleEvents && chart.canLoad());

        QTest::mouseClick(chart.find<QPushButton>("pBtnLoadDec"), Qt::LeftButton);
        QVERIFY(KdecSelForm->isVisible());
        auto* const box = KdecSelForm->findChild<QComboBox*>();
        QCOMPARE(box->itemText(0), QString("1000"));
        box->setEditText("10");
        QTest::mouseClick(KdecSelForm->findChild<QPushButton*>("pushButton"), Qt::LeftButton);
        QVERIFY(!KdecSelForm->isVisible());
        QCOMPARE(chart.taken.size(), 4);
        QCOMPARE(chart.taken[3].second, qint64(217));

        chart.sch.updRecords(4.6);
        QCOMPARE(chart.taken.size(), 7);
        QCOMPARE(chart.taken[6], qMakePair(at(0, 12), qint64(1440 / 5 + 1))); // up to its last sample
    }

    void shortDayAndStop()
    {
        Chart chart;
        for (int day = 1; day < days; ++day) {
            // 60 s between samples are told to be one.
            const QString name = chart.home.filePath(recordingName(firstDay.addDays(day), 1) + ".inf");
            QFile inf(name);
            QVERIFY(inf.open(QIODevice::ReadWrite));
            inf.seek(40);
            inf.write("\1\0", 2);
        }
        chart.click(0, at(1, 9));
        chart.prompts.press(QMessageBox::Ignore);
        chart.sch.load(1);
        QVERIFY(chart.prompts.seen[0].buttons.contains("Больше не показывать"));
        QCOMPARE(chart.taken.size(), 1);
        chart.prompts.handle([&chart](QDialog&) {
            chart.find<QPushButton>("stopBtn")->click();
            return 0;
        });
        chart.sch.load(1);
        QCOMPARE(chart.taken.size(), 1);
        QVERIFY(!SLEEP && chart.canLoad());
        QCOMPARE(chart.text("infoLbl"), QString("Загрузка остановлена."));
    }

    void faultIsTold()
    {
        Chart chart;
        chart.sch.selected << 0;
        QVERIFY(QFile::remove(chart.home.filePath(recordingName(firstDay, 1) + ".dat")));
        chart.prompts.press(QMessageBox::Ok);
        chart.sch.load(1);
        QCOMPARE(chart.prompts.seen[0].title, QString("Ошибки чтения данных измерения  "));
        QVERIFY(chart.taken.isEmpty());
    }

    void interval()
    {
        Chart chart;
        QWidget* const canvas = chart.view()->viewport();
        QTest::mouseClick(canvas, Qt::RightButton, {}, chart.pixel(0, at(1, 9)));
        auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        QVERIFY(menu);
        QCOMPARE(menu->actions().value(0)->text(), QString("Задать интервал"));
        chart.prompts.handle([](QDialog& dialog) {
            dialog.findChild<QLineEdit*>()->setText("3600");
            dialog.findChild<QPushButton*>()->click();
            return dialog.result();
        });
        menu->actions()[0]->trigger();
        menu->close();
        QCOMPARE(chart.sch.selected, QList<int>{1});
        QCOMPARE(chart.sch.marks[0].width(), 3600.0);
        chart.sch.load(1);
        QVERIFY(qAbs(chart.taken[0].second - 60) <= 1);
        QVERIFY(qAbs(chart.taken[0].first.secsTo(at(1, 9))) < 600);
        chart.click(0, at(1, 9)); // chooses the whole again
        chart.sch.load(1);
        QCOMPARE(chart.taken[1].second, qint64(2161));
    }

    void table()
    {
        Chart chart;
        QSignalSpy shown(&chart.sch, &schedule::TableIsShown);
        chart.click(0, at(0, 9));
        chart.sch.showTable(firstDay, chart.lastDay, QByteArray(), 2, QDir(chart.home.path()));
        QCOMPARE(shown.takeFirst()[0].toBool(), true);
        QTableWidget* const table = chart.table();
        QVERIFY(table->isVisible() && !chart.view()->isVisible());
        QCOMPARE(table->rowCount(), 4);
        QCOMPARE(table->item(2, 0)->text(), QString("2"));
        QCOMPARE(table->item(0, 1)->text(), QString("01.03.2026 06:00:00"));
        QCOMPARE(table->item(0, 2)->text(), QString("01.03.2026 18:00:00"));
        const auto chosen = [table](int row) {
            return table->item(row, 1)->background().color() == QColor(120, 0, 190);
        };
        QVERIFY(chosen(0) && !chosen(1));
        const auto click = [table](int row, Qt::KeyboardModifiers modifiers) {
            QTest::mouseClick(table->viewport(), Qt::LeftButton, modifiers,
                table->visualItemRect(table->item(row, 1)).center());
        };
        click(1, Qt::NoModifier);
        QVERIFY(!chosen(0) && chosen(1));
        click(2, Qt::ControlModifier);
        click(3, Qt::ControlModifier); // no file
        QCOMPARE(chart.sch.selected, (QList<int>{1, 2}));
        QTest::keyClick(table, Qt::Key_Space); // the current row cannot be chosen
        QTest::keyClick(table, Qt::Key_Up);
        QTest::keyClick(table, Qt::Key_Space);
        QCOMPARE(chart.sch.selected, QList<int>{1});
        QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, QPoint(20, table->viewport()->height() - 5));
        QVERIFY(chart.sch.selected.isEmpty() && !chosen(1) && !chart.canLoad());
        chart.sch.showSchedule(firstDay, chart.lastDay, QByteArray(), 2, QDir(chart.home.path()));
        QCOMPARE(shown.takeFirst()[0].toBool(), false);
    }

    void emptyMap()
    {
        mapStruct map(1, 1);
        schedule sch(nullptr, &map);
        sch.showSchedule(firstDay, firstDay, QByteArray(), 0, QDir());
        QTest::mouseClick(sch.findChild<MyView*>("graphicsView")->viewport(), Qt::LeftButton);
        sch.showTable(firstDay, firstDay, QByteArray(), 0, QDir());
        sch.updRecords(1);
        QVERIFY(sch.selected.isEmpty());
    }
};

QTEST_MAIN(tst_Schedule)
#include "tst_schedule.moc"
