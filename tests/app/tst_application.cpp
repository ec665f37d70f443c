#include "app/application.h"
#include "base/busyguard.h"
#include "base/globals.h"
#include "support/scopedprompts.h"

#include <QMessageBox>
#include <QPushButton>
#include <QTest>

#include <functional>
#include <new>
#include <stdexcept>

Q_DECLARE_METATYPE(std::function<void()>)

namespace {

/// Each repaint fails.
class Unpaintable : public QWidget {
public:
    int failures = 0;

protected:
    void paintEvent(QPaintEvent*) override
    {
        ++failures;
        throw std::runtime_error("nothing to draw");
    }
};

} // namespace

class TstApplication : public QObject {
    Q_OBJECT
private slots:
    void survives_data();
    void survives();
    void leavesTheOuterCommandBusy();
    void tellsAPaintFailureOnce();
};

void TstApplication::survives_data()
{
    QTest::addColumn<std::function<void()>>("fail");
    QTest::addColumn<QString>("told");
    using Fail = std::function<void()>;
    QTest::newRow("index 0") << Fail([] { throw 0; }) << "за пределы";
    QTest::newRow("memory") << Fail([] { throw std::bad_alloc(); }) << "Недостаточно оперативной памяти";
    QTest::newRow("standard") << Fail([] { throw std::runtime_error("no grid"); }) << "no grid";
    QTest::newRow("other") << Fail([] { throw "text"; }) << "причина неизвестна";
}

void TstApplication::survives()
{
    QFETCH(const std::function<void()>, fail);
    QFETCH(const QString, told);
    ScopedPrompts prompts;
    prompts.press(QMessageBox::Ok);
    QPushButton button;
    int clicks = 0;
    connect(&button, &QPushButton::clicked, this, [&] {
        if (++clicks > 1)
            return;
        SLEEP = true;
        QApplication::setOverrideCursor(Qt::WaitCursor);
        QApplication::setOverrideCursor(Qt::BusyCursor);
        fail();
    });
    button.show();
    QTest::mouseClick(&button, Qt::LeftButton);
    QVERIFY(!SLEEP);
    QVERIFY(!QApplication::overrideCursor());
    QTRY_COMPARE(prompts.seen.size(), 1);
    QVERIFY2(prompts.seen[0].text.contains(told), qPrintable(prompts.seen[0].text));
    QTest::mouseClick(&button, Qt::LeftButton);
    QCOMPARE(clicks, 2);
}

void TstApplication::leavesTheOuterCommandBusy()
{
    ScopedPrompts prompts;
    prompts.press(QMessageBox::Ok);
    QPushButton inner;
    connect(&inner, &QPushButton::clicked, this, [] { throw 0; });
    QPushButton outer;
    bool stillBusy = false;
    connect(&outer, &QPushButton::clicked, this, [&] {
        const BusyGuard busy;
        QTest::mouseClick(&inner, Qt::LeftButton);
        stillBusy = SLEEP;
    });
    inner.show();
    outer.show();
    QTest::mouseClick(&outer, Qt::LeftButton);
    QVERIFY(stillBusy);
    QVERIFY(!SLEEP);
    QTRY_COMPARE(prompts.seen.size(), 1);
}

void TstApplication::tellsAPaintFailureOnce()
{
    ScopedPrompts prompts;
    prompts.press(QMessageBox::Ok);
    Unpaintable window;
    window.show();
    QTRY_COMPARE(prompts.seen.size(), 1);
    const int before = window.failures;
    window.repaint();
    QTRY_VERIFY(window.failures > before);
    QTest::qWait(50);
    QCOMPARE(prompts.seen.size(), 1);
}

int main(int argc, char** argv)
{
    Application application(argc, argv);
    TstApplication test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_application.moc"
