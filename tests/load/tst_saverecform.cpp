#include "base/globals.h"
#include "load/saverecform.h"
#include "record/record.h"
#include "support/samplerecord.h"
#include "support/scopedhome.h"
#include "support/scopedprompts.h"

#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QtTest>

namespace {

/// The dialog with a record of three samples on channel 3, in a folder of its own.
struct Bench {
    ScopedHome home;
    ScopedPrompts prompts;
    QString startPath = home.file(QString()); // ends with "/", as the default of the settings
    saverecform form;
    Record record;
    QLineEdit* file = form.findChild<QLineEdit*>("fileEdit");
    QPlainTextEdit* comment = form.findChild<QPlainTextEdit*>("commentEdit");
    QPushButton* change = button("ChangeCommentBtn");
    QPushButton* ok = button("OKButton");

    explicit Bench(int samples = 3)
    {
        fillRecord(
            record, samples, 1.0, [](int i) { return i * 1e-9; }, 3);
        form.setProp(&startPath);
    }
    QPushButton* button(const char* name) { return form.findChild<QPushButton*>(QLatin1String(name)); }
    QByteArray content(const QString& name) const
    {
        QFile in(home.file(name));
        return in.open(QIODevice::ReadOnly) ? in.readAll() : QByteArray("no file");
    }
};

const QByteArray samples = "0.0000000000 0.0000000000000000e+00\r\n1.0000000000 1.0000000000000001e-09\r\n"
                           "2.0000000000 2.0000000000000001e-09\r\n";
const QByteArray header = "# 01.03.26 00:00:00 - 01.03.26 00:00:02\r\n# Kdec=1 Channel№ = 3\r\n"
                          "# Maser - Clock 3\r\n# total number of counts 3\r\n";

} // namespace

class TestSaveRecForm : public QObject {
    Q_OBJECT
private slots:
    void cleanup()
    {
        QVERIFY(!SLEEP);
        WorkFolder = QDir::current();
    }

    void proposals_data()
    {
        QTest::addColumn<int>("channel");
        QTest::addColumn<QString>("name");
        QTest::newRow("9") << 9 << "260301_09.txt";
        QTest::newRow("10") << 10 << "260301_010.txt";
        QTest::newRow("11") << 11 << "260301_11.txt";
    }

    void proposals()
    {
        QFETCH(int, channel);
        QFETCH(QString, name);
        Bench b;
        b.record.ch = channel;
        b.form.Show(&b.record);
        QCOMPARE(b.file->text(), b.home.file(name));
        b.prompts.chooseFile(QString());
        b.button("OpenDirBtn")->click();
        QCOMPARE(b.file->text(), b.home.file(name));
        b.prompts.chooseFile("/");
        b.button("OpenDirBtn")->click();
        QCOMPARE(b.prompts.seen.last().title, QString("Выбрать каталог"));
        QCOMPARE(b.file->text(), "/" + name);
        QCOMPARE(WorkFolder.absolutePath(), QString("/"));
    }

    void savesWithDefaultHeader()
    {
        Bench b;
        QVERIFY(QDir(b.home.file(QString())).mkdir("sub"));
        b.form.Show(&b.record);
        QVERIFY(b.form.isVisible() && b.comment->isReadOnly());
        QCOMPARE(b.comment->styleSheet(), QString("background-color: #f0f0f0;"));
        QCOMPARE(b.comment->toPlainText(),
            QString("01.03.26 00:00:00 - 01.03.26 00:00:02\nKdec = 1 Band = 10 Channel № = 3\n"
                    "Clock 3 - Maser\nКоличество отсчетов: 3"));
        deleteRecord(&b.record); // the dialog keeps the samples for itself
        b.file->setText("sub/my.dat");
        QTest::keyClick(b.file, Qt::Key_Return);
        QVERIFY(!b.form.isVisible());
        QCOMPARE(b.content("sub/my.dat"), header + samples);
        QCOMPARE(b.startPath, b.home.file("sub"));
    }

    void comments_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QByteArray>("head");
        QTest::newRow("lines") << "one\n\n# two\n #three" << QByteArray("#one\r\n# two\r\n# #three\r\n");
        QTest::newRow("empty") << "" << QByteArray();
        QTest::newRow("line ends alone") << "\n\n" << QByteArray();
    }

    void comments()
    {
        QFETCH(QString, typed);
        QFETCH(QByteArray, head);
        Bench b;
        b.form.Show(&b.record);
        QCOMPARE(b.change->text(), QString("Изменить"));
        b.change->click();
        QCOMPARE(b.change->text(), QString("Принять"));
        QCOMPARE(b.comment->styleSheet(), QString("background-color: #ffffff;"));
        QVERIFY(!b.comment->isReadOnly() && !b.ok->isEnabled());
        b.comment->setPlainText(typed);
        b.change->click();
        QVERIFY(b.comment->isReadOnly() && b.ok->isEnabled());
        b.ok->click();
        QCOMPARE(b.content("260301_03.txt"), head + samples);
        b.form.Show(&b.record); // starts afresh
        b.prompts.press(QMessageBox::Yes);
        b.ok->click();
        QCOMPARE(b.content("260301_03.txt"), header + samples);
    }

    void refusals()
    {
        Bench b;
        b.home.write("old.txt", "old");
        QDir(b.home.file(QString())).mkdir("sub");
        b.form.Show(&b.record);
        const auto refused = [&b](const QString& name, QMessageBox::StandardButton answer,
                                 const QString& said) {
            b.file->setText(name);
            b.prompts.press(answer);
            b.ok->click();
            return b.form.isVisible() && b.prompts.seen.last().text.contains(said);
        };
        QVERIFY(refused("old.txt", QMessageBox::No, "уже существует"));
        QVERIFY(refused("  ", QMessageBox::Ok, "имя файла"));
        QVERIFY(refused("sub", QMessageBox::Ok, "каталог или устройство"));
        QVERIFY(refused("/dev/null", QMessageBox::Ok, "каталог или устройство"));
        QVERIFY(refused("none/a.txt", QMessageBox::Ok, b.home.file("none")));
        QVERIFY(refused(QString(300, 'a'), QMessageBox::Ok, "Не удалось сохранить"));
        QCOMPARE(b.content("old.txt"), QByteArray("old"));
        QCOMPARE(b.startPath, b.home.file(QString()));
        QTest::keyClick(&b.form, Qt::Key_Escape);
        QVERIFY(!b.form.isVisible());
    }

    void stopWhileWriting_data()
    {
        QTest::addColumn<bool>("bySign");
        QTest::newRow("button") << false;
        QTest::newRow("window closed") << true;
    }

    void stopWhileWriting()
    {
        QFETCH(bool, bySign);
        Bench b(1000000);
        b.home.write("260301_03.txt", "old");
        b.form.Show(&b.record);
        auto* bar = b.form.findChild<QProgressBar*>();
        bool busy = false;
        connect(bar, &QProgressBar::valueChanged, &b.form, [&](int percent) {
            if (percent <= 0)
                return;
            busy = SLEEP && bar->isVisible() && !b.ok->isEnabled() && !b.file->isEnabled();
            Record other;
            b.form.Show(&other); // does not take the record away
            bySign ? void(b.form.close()) : b.button("CancelButton")->click();
        });
        b.prompts.press(QMessageBox::Yes);
        b.ok->click();
        QVERIFY(busy && b.form.isVisible() && bar->isHidden() && b.file->isEnabled());
        QCOMPARE(b.content("260301_03.txt"), QByteArray("old"));
        QCOMPARE(QDir(b.home.file(QString())).entryList(QDir::Files).size(), 1); // no temporary file is left
        disconnect(bar, nullptr, &b.form, nullptr);
        b.prompts.press(QMessageBox::Yes);
        b.ok->click();
        QCOMPARE(b.content("260301_03.txt").count('\n'), 1000004);
    }

    void insideAnArea()
    {
        QMdiArea area;
        Bench b;
        QMdiSubWindow* frame = area.addSubWindow(&b.form);
        frame->setAttribute(Qt::WA_DeleteOnClose, false);
        area.show();
        frame->hide();
        for (int round = 0; round < 2; ++round) {
            b.form.Show(&b.record);
            QVERIFY(frame->isVisible() && b.form.isVisible());
            round == 0 ? b.form.reject() : void(frame->close());
            QVERIFY(!frame->isVisible());
        }
    }
};

QTEST_MAIN(TestSaveRecForm)
#include "tst_saverecform.moc"
