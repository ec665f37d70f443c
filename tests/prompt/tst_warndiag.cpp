#include "base/globals.h"
#include "prompt/guard.h"
#include "prompt/progressscope.h"
#include "prompt/prompt.h"
#include "prompt/warndiag.h"
#include "support/scopedprompts.h"

#include <QCommandLinkButton>
#include <QLabel>
#include <QListWidget>
#include <QTest>

#include <new>

class WarnDiagTest : public QObject {
    Q_OBJECT
private slots:
    void givesThePressedButton();
    void closingCountsAsCancel();
    void detailsOpenBehindTheLink();
    void memoryIsToldAndSurvived();
    void progressScopeRestores();
};

void WarnDiagTest::givesThePressedButton()
{
    ScopedPrompts prompts;
    WarnDiag box;
    prompts.press(QDialogButtonBox::Cancel);
    prompts.press(QDialogButtonBox::Ok);
    const auto both = QDialogButtonBox::Ok | QDialogButtonBox::Cancel;
    QCOMPARE(box.showMe(QStringLiteral("first"), true, both), QDialogButtonBox::Cancel);
    QCOMPARE(box.showMe(QStringLiteral("second"), true, both), QDialogButtonBox::Ok);
    QCOMPARE(prompts.seen.at(1).text, QStringLiteral("second"));
}

void WarnDiagTest::closingCountsAsCancel()
{
    ScopedPrompts prompts;
    WarnDiag box;
    const auto close = [](QDialog& dialog) {
        dialog.reject();
        return dialog.result();
    };
    prompts.handle(close);
    prompts.handle(close);
    QCOMPARE(box.showMe(QStringLiteral("?"), true, QDialogButtonBox::Ok | QDialogButtonBox::Cancel),
        QDialogButtonBox::Cancel);
    QCOMPARE(box.showMe(QStringLiteral("!")), QDialogButtonBox::Ok);
}

void WarnDiagTest::detailsOpenBehindTheLink()
{
    ScopedPrompts prompts;
    WarnDiag box;
    prompts.handle([&box](QDialog&) {
        auto* link = box.findChild<QCommandLinkButton*>(QStringLiteral("MoreLbl"));
        auto* list = box.findChild<QListWidget*>(QStringLiteral("More_list"));
        [&] {
            QVERIFY(!link->isHidden());
            QVERIFY(list->isHidden());
            link->click();
            QVERIFY(!list->isHidden());
            QCOMPARE(link->text(), QStringLiteral("Скрыть подробности проблемы"));
            QCOMPARE(list->count(), 2);
        }();
        return 0;
    });
    box.showMe(QStringLiteral("x"), true, QDialogButtonBox::Ok, {QStringLiteral("a"), QStringLiteral("b")});
}

void WarnDiagTest::memoryIsToldAndSurvived()
{
    ScopedPrompts prompts;
    prompts.press(QDialogButtonBox::Ok);
    QVERIFY(!runGuarded("test", [] { throw std::bad_alloc(); }));
    QVERIFY(prompts.seen.at(0).text.startsWith(QStringLiteral("Недостаточно оперативной памяти.\n")));
    QVERIFY(runGuarded("test", [] {}));
}

void WarnDiagTest::progressScopeRestores()
{
    QProgressBar bar;
    bar.hide();
    try {
        ProgressScope scope(&bar);
        QVERIFY(SLEEP);
        QVERIFY(!bar.isHidden());
        scope.show(40.0);
        QCOMPARE(bar.value(), 40);
        throw 0;
    } catch (int) {
    }
    QVERIFY(!SLEEP);
    QVERIFY(bar.isHidden());
    QVERIFY(!QGuiApplication::overrideCursor());
}

QTEST_MAIN(WarnDiagTest)
#include "tst_warndiag.moc"
