#include "base/globals.h"
#include "graphs.h"
#include "plot/core/commenttext.h"
#include "plot/frgrsetdlg.h"
#include "plot/grafoptions.h"
#include "plot/insplotcomment.h"
#include "plot/multiaxisplot.h"
#include "plot/plotzoomdt.h"
#include "plot/timescaledraw.h"
#include "support/near.h"
#include "support/scopedprompts.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QDateTimeEdit>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTextEdit>
#include <qwt_text_label.h>

#include <functional>
#include <limits>
#include <memory>

Q_DECLARE_METATYPE(std::function<void(AvarForm&)>)

class TestPlotDialogs : public QObject {
    Q_OBJECT
private slots:
    void interval_data();
    void interval();
    void timeLabels();
    void dateLabels();
    void period();
    void periodOnGraph_data();
    void periodOnGraph();
    void commentTexts();
    void comments();
    void commentPlaces();
    void closedMeanwhile_data();
    void closedMeanwhile();
};

void TestPlotDialogs::interval_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("value");
    QTest::addColumn<bool>("closed");
    QTest::addColumn<bool>("told");
    QTest::newRow("largest") << "10000" << 10000.0 << true << false;
    QTest::newRow("too large") << "10001" << 5.0 << true << true;
    QTest::newRow("beyond an int") << "99999999999" << 5.0 << true << true;
    QTest::newRow("small") << "1" << 1.0 << true << false;
    QTest::newRow("empty") << "" << 5.0 << false << false;
    QTest::newRow("letters") << "1o" << 5.0 << false << false;
}

void TestPlotDialogs::interval()
{
    QFETCH(QString, text);
    QFETCH(bool, told);
    double value = 5.0;
    FrGrSetDlg dialog(&value);
    dialog.show();
    ScopedPrompts prompts;
    if (told)
        prompts.handle([](QDialog& box) {
            const auto* message = qobject_cast<QMessageBox*>(&box);
            return message && message->icon() == QMessageBox::Information
                    && message->standardButtons() == QMessageBox::Ok
                ? QDialog::Accepted
                : (QTest::qFail("another box", __FILE__, __LINE__), QDialog::Rejected);
        });
    dialog.findChild<QLineEdit*>("lineEdit")->setText(text);
    dialog.findChild<QPushButton*>("pushButton")->click();
    QTEST(value, "value");
    QTEST(!dialog.isVisible(), "closed");
    QCOMPARE(prompts.seen.size(), told ? 1 : 0);
    if (told)
        QCOMPARE(prompts.seen.first().text, QString("Значение не может быть больше 1000"));
}

void TestPlotDialogs::timeLabels()
{
    const TimeScaleDraw midnight(QTime(0, 0));
    const TimeScaleDraw evening(QTime(23, 30));
    QCOMPARE(midnight.label(90000.0).text(), QString("01:00"));
    QCOMPARE(evening.label(90000.0).text(), QString("00:30"));
    QCOMPARE(midnight.label(-3600.0).text(), QString("23:00"));
    QCOMPARE(midnight.label(-90000.0).text(), QString("23:00"));
    QCOMPARE(midnight.label(86400.0).text(), QString("00:00"));
    QCOMPARE(midnight.label(3599.99999).text(), QString("01:00"));
    QCOMPARE(midnight.label(3599.9).text(), QString("00:59"));
    for (const double wrong :
        {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity()})
        QVERIFY(midnight.label(wrong).text().isEmpty());
    QCOMPARE(midnight.label(1e300).text().size(), 5);
}

void TestPlotDialogs::dateLabels()
{
    const DateScaleDraw draw(QDateTime(QDate(2024, 2, 28), QTime(12, 0)));
    QCOMPARE(draw.label(0.0).text(), QString("28.02"));
    QCOMPARE(draw.label(43199.0).text(), QString("28.02"));
    QCOMPARE(draw.label(43200.0).text(), QString("29.02"));
    QCOMPARE(draw.label(-43201.0).text(), QString("27.02"));
    QVERIFY(draw.label(1e300).text().isEmpty());
}

void TestPlotDialogs::period()
{
    PlotZoomDT dialog;
    QSignalSpy zoom(&dialog, &PlotZoomDT::zoomIt);
    QSignalSpy restore(&dialog, &PlotZoomDT::restore);
    dialog.setdt(start, start.addSecs(60));
    dialog.myshow();
    QVERIFY(dialog.isVisible() && dialog.windowModality() == Qt::WindowModal);
    auto* from = dialog.findChild<QDateTimeEdit*>("dateTimeEdit");
    auto* to = dialog.findChild<QDateTimeEdit*>("dateTimeEdit_2");
    QCOMPARE(to->dateTime(), start.addSecs(60));
    auto* ok = dialog.findChild<QDialogButtonBox*>("buttonBox")->button(QDialogButtonBox::Ok);
    from->setDateTime(start.addSecs(60));
    QVERIFY(!ok->isEnabled());
    from->setDateTime(start.addSecs(20));
    QCOMPARE(dialog.start, start);
    dialog.on_dateTimeEdit_editingFinished();
    QCOMPARE(dialog.start, start.addSecs(20));
    to->setDateTime(start.addSecs(40));
    ok->click();
    QCOMPARE(dialog.stop, start.addSecs(40));
    QVERIFY(zoom.count() == 1 && !dialog.isVisible());
    dialog.myshow();
    dialog.findChild<QPushButton*>("restore_pBtn")->click();
    QTest::keyClick(&dialog, Qt::Key_Escape);
    QVERIFY(restore.count() == 1 && zoom.count() == 1 && !dialog.isVisible());
}

void TestPlotDialogs::periodOnGraph_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<bool>("hours");
    QTest::addColumn<bool>("days");
    QTest::addColumn<double>("first");
    QTest::addColumn<double>("low");
    QTest::addColumn<double>("high");
    QTest::newRow("seconds") << 0 << false << false << 0.0 << 1800.0 << 5400.0;
    QTest::newRow("hours") << 1 << true << false << 0.0 << 0.5 << 1.5;
    // 2025-02-01 10:00 in modified Julian days.
    QTest::newRow("days") << 1 << false << true << 60707.0 << 60707.4375 << 60707.479166666666;
    QTest::newRow("spectrum") << 2 << false << false << 0.0 << -1.0 << -1.0;
}

void TestPlotDialogs::periodOnGraph()
{
    QFETCH(int, kind);
    QFETCH(double, first);
    QFETCH(double, low);
    QFETCH(double, high);
    AvarForm form(nullptr, nullptr, kind);
    QFETCH(bool, hours);
    QFETCH(bool, days);
    form.isHourPlot = hours;
    form.isDayPlot = days;
    form.startTime = start;
    double x[] = {first, first + 1, first + 2, first + 3};
    double y[] = {1, 2, 3, 4};
    form.addData(1, 4, x, y);
    showWindow(form);
    constexpr int bottom = MultiAxisPlot::bottomAxis;
    const QwtInterval whole = form.plot()->axisInterval(bottom);
    const QwtInterval values = form.plot()->axisInterval(0);
    form.showZoomDialog();
    QCOMPARE(form.zoomDialog()->isVisible(), kind < 2);
    form.setTimeBounds(start.addSecs(5400), start.addSecs(1800));
    emit form.zoomDialog()->zoomIt();
    const QwtInterval shown = form.plot()->axisInterval(bottom);
    NEAR(shown.minValue(), kind < 2 ? low : whole.minValue());
    NEAR(shown.maxValue(), kind < 2 ? high : whole.maxValue());
    QCOMPARE(form.plot()->axisInterval(0), values);
    emit form.zoomDialog()->restore();
    QCOMPARE(form.plot()->axisInterval(bottom), whole);
}

void TestPlotDialogs::commentTexts()
{
    const QString plain = "a < b & \"c\" > &lt; <b>\n\nend\n";
    const QString joined = joinedLines(plain);
    QCOMPARE(joined, QString("a < b & \"c\" > &lt; <b><br /><br />end<br />"));
    QCOMPARE(commentPlain(commentMarkup(joined)), plain);
    QVERIFY(!commentMarkup(joined).contains("<b>"));
}

void TestPlotDialogs::comments()
{
    AvarForm form(nullptr, nullptr, 0);
    add(form, 1, 5);
    showWindow(form);
    InsPlotComment* dialog = form.commentDialog();
    auto* edit = dialog->findChild<QTextEdit*>("textEdit");
    QSignalSpy inserted(dialog, &InsPlotComment::insComment);
    const auto accept = [&](const QString& text) {
        edit->setPlainText(text);
        dialog->findChild<QDialogButtonBox*>("buttonBox")->button(QDialogButtonBox::Ok)->click();
    };
    form.showCommentDialog();
    accept(QString());
    QVERIFY(inserted.isEmpty() && !dialog->isVisible() && form.comments().isEmpty());
    form.showCommentDialog();
    accept("one\ntwo <b>");
    QCOMPARE(inserted.takeFirst().first().toString(), QString("one<br />two <b>"));
    form.setPlotComment("other");
    QCOMPARE(form.comments().size(), 2);
    QwtTextLabel* label = form.comments().first();
    QContextMenuEvent wanted(QContextMenuEvent::Mouse, QPoint(2, 2), label->mapToGlobal(QPoint(2, 2)));
    QCoreApplication::sendEvent(label, &wanted);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    QVERIFY(menu);
    QCOMPARE(menu->actions().first()->text(), QString("Редактировать комментарий"));
    menu->close();
    menu->actions().first()->trigger();
    QVERIFY(dialog->isVisible());
    QCOMPARE(edit->toPlainText(), QString("one\ntwo <b>"));
    accept("corrected\nby hand");
    QCOMPARE(label->text().text(), QString("corrected<br />by hand"));
    QVERIFY(inserted.isEmpty());
    // A correction given up leaves the label, and the next text is a new comment.
    dialog->CorrectComment(label);
    QTest::keyClick(dialog, Qt::Key_Escape);
    form.showCommentDialog();
    QVERIFY(edit->toPlainText().isEmpty());
    accept("third");
    QCOMPARE(form.comments().size(), 3);
    // A label that is deleted while it is corrected: the text becomes a new comment.
    dialog->CorrectComment(label);
    menu->actions().last()->trigger();
    QCOMPARE(form.comments().size(), 2);
    accept("fourth");
    QCOMPARE(form.comments().last()->text().text(), QString("fourth"));
}

void TestPlotDialogs::commentPlaces()
{
    AvarForm form(nullptr, nullptr, 0);
    add(form, 1, 5);
    form.resize(800, 600);
    showWindow(form);
    form.setPlotComment(QString(500, 'W'));
    form.setPlotComment(QString("word ").repeated(100));
    form.setPlotComment("short");
    const QWidget* canvas = form.plot()->canvas();
    const auto inside = [&] {
        for (const QwtTextLabel* label : form.comments()) {
            if (!canvas->rect().contains(label->geometry()))
                return false;
        }
        return true;
    };
    QVERIFY(inside());
    QwtTextLabel* label = form.comments().last();
    QTest::mousePress(label, Qt::LeftButton, {}, QPoint(3, 3));
    const QPoint far(2000, 2000);
    QMouseEvent move(QEvent::MouseMove, far, label->mapToGlobal(far), Qt::NoButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(label, &move);
    QTest::mouseRelease(label, Qt::LeftButton, {}, QPoint(3, 3));
    QVERIFY(inside());
    QVERIFY(label->geometry().bottom() > canvas->height() - 20
        && label->geometry().right() > canvas->width() - 20);
    QVERIFY(form.statusText().isEmpty());
    form.resize(500, 420);
    QCoreApplication::processEvents();
    QVERIFY(inside());
}

void TestPlotDialogs::closedMeanwhile_data()
{
    using Command = std::function<void(AvarForm&)>;
    QTest::addColumn<Command>("command");
    QTest::addRow("picture") << Command([](AvarForm& form) { form.saveImage(); });
    QTest::addRow("table") << Command([](AvarForm& form) { form.exportASCII(); });
    QTest::addRow("print") << Command([](AvarForm& form) { form.printImage(); });
    QTest::addRow("preview") << Command([](AvarForm& form) { form.previewPrint(); });
    QTest::addRow("colour") << Command([](AvarForm& form) {
        form.openProperty();
        form.showZoomDialog();
        form.showCommentDialog();
        form.options->on_colorBtn_clicked();
    });
}

/// The window goes while one of its dialogs is open.
void TestPlotDialogs::closedMeanwhile()
{
    QFETCH(std::function<void(AvarForm&)>, command);
    auto form = std::make_unique<AvarForm>(nullptr, nullptr, 0);
    form->startTime = start;
    add(*form, 1, 5);
    form->show();
    ScopedPrompts prompts;
    prompts.handle([&form](QDialog&) {
        form.reset();
        return int(QDialog::Accepted);
    });
    command(*form);
    QVERIFY(!form && !QApplication::activeModalWidget());
}

QTEST_MAIN(TestPlotDialogs)
#include "tst_plotdialogs.moc"
