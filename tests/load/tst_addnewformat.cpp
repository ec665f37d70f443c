#include "load/addnewformat_class.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QtTest>

namespace {

/// The dialog with its parts.
struct Bench {
    addNewFormat_class form;
    QLineEdit* line = form.findChild<QLineEdit*>("lineEdit");
    QPushButton* ok = form.findChild<QDialogButtonBox*>("buttonBox")->button(QDialogButtonBox::Ok);
    QSignalSpy added{&form, &addNewFormat_class::newFormat};
    QSignalSpy edited{&form, &addNewFormat_class::formatEdited};

    QString label(const char* name) const { return form.findChild<QLabel*>(QLatin1String(name))->text(); }
};

const QString good = "<font color=#00aa00><b>Корректный формат</b></font>";
const QString bad = "<font color=#aa0000><b>Недопустимый формат</b></font>";

} // namespace

class TestAddNewFormat : public QObject {
    Q_OBJECT
private slots:
    void verdictWhileTyping()
    {
        Bench b;
        QCOMPARE(b.form.windowTitle(), QString("Добавление формата для чтения ASCII-данных"));
        QCOMPARE(b.label("verdictLbl"), bad);
        QVERIFY(!b.ok->isEnabled());
        b.form.show();
        QTest::keyClicks(b.line, "[x]a");
        QCOMPARE(b.edited.size(), 4);
        QCOMPARE(b.edited.at(1).first().toString(), QString());
        QCOMPARE(b.edited.at(2).first().toString(), QString("[x]"));
        QCOMPARE(b.edited.at(3).first().toString(), QString());
        QCOMPARE(b.label("verdictLbl"), bad);
        QVERIFY(b.label("reasonLbl").contains("«a», позиция 4"));
        QTest::keyClick(b.line, Qt::Key_Return);
        QVERIFY(b.form.isVisible()); // a slip of the key does not throw the text away
        QTest::keyClick(b.line, Qt::Key_Backspace);
        QCOMPARE(b.label("verdictLbl"), good);
        QVERIFY(b.label("reasonLbl").isEmpty() && b.ok->isEnabled());
        QTest::keyClick(b.line, Qt::Key_Return);
        QVERIFY(!b.form.isVisible());
        QCOMPARE(b.added.size(), 1);
        QCOMPARE(b.added.first().first().toString(), QString("[x]"));
    }

    void takenOnlyWhenCorrect()
    {
        Bench b;
        b.form.edit("[t] [x]");
        QVERIFY(b.form.isVisible());
        QCOMPARE(b.edited.last().first().toString(), QString("[t] [x]"));
        QTest::keyClick(&b.form, Qt::Key_Escape);
        QVERIFY(!b.form.isVisible() && b.added.isEmpty());
        b.form.edit("[t");
        b.form.on_buttonBox_accepted();
        QVERIFY(!b.form.isVisible() && b.added.isEmpty());
        QVERIFY(!b.form.IsFormatCorrect("a[x]") && b.form.IsFormatCorrect("[x] ; [y]"));
    }

    void exampleOfTheHelpIsCorrect()
    {
        Bench b;
        const QString help = b.label("helpLbl");
        const QString example =
            help.mid(help.indexOf("Пример: ") + 8, help.indexOf(" для") - help.indexOf("Пример: ") - 8);
        QVERIFY2(b.form.IsFormatCorrect(example), qPrintable(example));
        QVERIFY(b.label("reasonLbl").isEmpty());
    }
};

QTEST_MAIN(TestAddNewFormat)
#include "tst_addnewformat.moc"
