#include "help/helpbrowser.h"
#include "help/helpform.h"
#include "helpcopy.h"
#include "support/scopedprompts.h"

#include <QAction>
#include <QApplication>
#include <QDesktopServices>
#include <QHelpEngine>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QStackedWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBlock>
#include <QToolBar>
#include <QTreeView>
#include <QTreeWidget>

#include <memory>

namespace {

/// The window joined to itself as the main window joins it.
class Help {
public:
    explicit Help(const QString& collection = QString())
    {
        QObject::connect(&form, &HelpForm::ShowPrev, &form, &HelpForm::showPrevious);
        QObject::connect(&form, &HelpForm::ShowNext, &form, &HelpForm::showNext);
        if (!collection.isEmpty()) {
            engine = std::make_unique<QHelpEngine>(collection);
            form.setEngine(engine.get());
            engine->setupData();
        }
        form.show();
        form.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&form));
        browser = form.findChild<helpBrowser*>();
    }
    ~Help() { form.setEngine(nullptr); }
    Help(const Help&) = delete;
    Help& operator=(const Help&) = delete;

    QString text() const { return browser->toPlainText(); }
    template <class Widget> Widget* child(const char* name) const
    {
        return form.findChild<Widget*>(QLatin1String(name));
    }
    QAction* action(const QKeySequence& key) const
    {
        for (QAction* action : form.actions()) {
            if (action->shortcuts().contains(key))
                return action;
        }
        return nullptr;
    }

    std::unique_ptr<QHelpEngine> engine;
    HelpForm form;
    helpBrowser* browser;
};

QByteArray bytesOf(const QString& file)
{
    QFile source(file);
    return source.open(QIODevice::ReadOnly) ? source.readAll() : QByteArray();
}

} // namespace

/// Keeps what the desktop was asked to open.
class Desktop : public QObject {
    Q_OBJECT
public:
    Desktop() { QDesktopServices::setUrlHandler(QStringLiteral("https"), this, "open"); }
    ~Desktop() override { QDesktopServices::unsetUrlHandler(QStringLiteral("https")); }
    QList<QUrl> opened;
public slots:
    void open(const QUrl& url) { opened << url; }
};

class TestHelpForm : public QObject {
    Q_OBJECT
private slots:
    void showsPage();
    void goesBackAndForth();
    void tellsMissingPage();
    void tellsMissingHelp_data();
    void tellsMissingHelp();
    void onlyReadsCollection();
    void contentsFollowPage();
    void searches();
    void findsInPage();
    void asksBeforeOutside();
    void zooms();
    void fitsPictures();
    void prints();
    void changesLanguage();
};

void TestHelpForm::showsPage()
{
    const HelpCopy copy;
    Help help(copy.collection());
    help.form.showPage("stat-adev");
    QCOMPARE(help.browser->pageName(), QStringLiteral("stat-adev"));
    QVERIFY2(help.text().contains("ADEV"), qPrintable(help.text()));
    const QTextBlock heading = help.browser->document()->begin();
    QCOMPARE(heading.begin().fragment().charFormat().foreground().color(), QColor("#12385f")); // help.css
    help.form.showPage(QString());
    QCOMPARE(help.browser->pageName(), QStringLiteral("index"));
}

void TestHelpForm::goesBackAndForth()
{
    const HelpCopy copy;
    Help help(copy.collection());
    QAction* back = help.action(QKeySequence(Qt::ALT + Qt::Key_Left));
    QAction* forth = help.action(QKeySequence(Qt::ALT + Qt::Key_Right));
    QVERIFY(back && forth);
    help.form.showPage("index");
    QVERIFY(!back->isEnabled());
    help.form.showPage("graphs");
    QVERIFY(back->isEnabled() && !forth->isEnabled());
    QTest::keyClick(help.browser, Qt::Key_Left, Qt::AltModifier);
    QCOMPARE(help.browser->pageName(), QStringLiteral("index"));
    forth->trigger();
    QCOMPARE(help.browser->pageName(), QStringLiteral("graphs"));
    help.action(QKeySequence(Qt::ALT + Qt::Key_Home))->trigger();
    QCOMPARE(help.browser->pageName(), QStringLiteral("index"));
}

void TestHelpForm::tellsMissingPage()
{
    const HelpCopy copy;
    Help help(copy.collection());
    help.form.showPage("no<such>page");
    QVERIFY2(help.text().contains("Страница не найдена"), qPrintable(help.text()));
    QVERIFY2(help.text().contains("no<such>page"), qPrintable(help.text()));
    help.browser->followLink(help.browser->source().resolved(QUrl("index.html")));
    QVERIFY2(!help.text().contains("Страница не найдена"), qPrintable(help.text()));
    QVERIFY(help.browser->hasHelp());
}

void TestHelpForm::tellsMissingHelp_data()
{
    QTest::addColumn<QString>("fault");
    for (const char* fault : {"no engine", "no collection", "broken collection", "no pages", "engine gone"})
        QTest::newRow(fault) << fault;
}

void TestHelpForm::tellsMissingHelp()
{
    QFETCH(QString, fault);
    const HelpCopy copy;
    QString collection = copy.collection();
    if (fault == "no engine")
        collection.clear();
    if (fault == "no collection")
        QVERIFY(QFile::remove(collection));
    if (fault == "no pages")
        QVERIFY(QFile::remove(copy.pages()));
    if (fault == "broken collection") {
        QFile broken(collection);
        QVERIFY(broken.open(QIODevice::WriteOnly) && broken.write("no database") > 0);
    }
    Help help(collection);
    help.form.showPage("record-table");
    if (fault == "engine gone") {
        QVERIFY(help.browser->hasHelp());
        help.engine.reset();
    }
    QVERIFY(!help.browser->hasHelp());
    QVERIFY2(help.text().contains("Справка недоступна"), qPrintable(help.text()));
    QVERIFY2(help.text().contains(fault.endsWith("engine") || fault == "engine gone"
                     ? QCoreApplication::applicationDirPath() + "/doc"
                     : collection),
        qPrintable(help.text()));
    // Nothing else may stumble over it.
    help.child<QLineEdit>("searchField")->setText("фаза");
    help.form.showPrevious();
    help.form.showHome();
    QVERIFY2(help.text().contains("Справка недоступна"), qPrintable(help.text()));
}

void TestHelpForm::onlyReadsCollection()
{
    const HelpCopy copy;
    const QByteArray before = bytesOf(copy.collection());
    QVERIFY(!before.isEmpty());
    Help help(copy.collection()); // the copied pages are of another time than the collection notes
    const auto* tree = help.child<QTreeView>("contentsTree");
    QTRY_VERIFY(tree->model()->rowCount() > 0);
    help.form.showPage("index");
    QVERIFY(help.browser->hasHelp());
    help.form.setEngine(nullptr);
    help.engine.reset();
    QVERIFY(bytesOf(copy.collection()) == before);
}

void TestHelpForm::contentsFollowPage()
{
    const HelpCopy copy;
    Help help(copy.collection());
    help.form.showPage("index");
    auto* tree = help.child<QTreeView>("contentsTree");
    QTRY_VERIFY(tree->currentIndex().isValid());
    const QString first = tree->currentIndex().data().toString();
    help.form.showPage("stat-mtie#any");
    QVERIFY(tree->currentIndex().data().toString().contains("MTIE"));
    QVERIFY(tree->currentIndex().parent().isValid());
    help.form.showPage("no-such-page");
    QVERIFY(tree->selectionModel()->selectedIndexes().isEmpty());

    emit tree->clicked(tree->model()->index(0, 0));
    QCOMPARE(tree->currentIndex().data().toString(), first);
    QCOMPARE(help.browser->pageName(), QStringLiteral("index"));
}

void TestHelpForm::searches()
{
    const HelpCopy copy;
    Help help(copy.collection());
    help.form.showPage("index");
    QTRY_VERIFY(help.child<QTreeView>("contentsTree")->currentIndex().isValid()); // the index comes with it
    auto* field = help.child<QLineEdit>("searchField");
    auto* results = help.child<QTreeWidget>("searchResults");
    QVERIFY(!results->isVisible());
    QTest::keyClicks(field, "mtie");
    QVERIFY(results->isVisible());
    QTRY_COMPARE(results->topLevelItemCount(), 2);
    QCOMPARE(results->topLevelItem(0)->text(0), QStringLiteral("Указатель"));
    QCOMPARE(results->topLevelItem(1)->text(0), QStringLiteral("Страницы"));

    QTest::keyClick(field, Qt::Key_Return); // the index entry
    QCOMPARE(help.browser->pageName(), QStringLiteral("stat-mtie"));
    QVERIFY(help.browser->extraSelections().isEmpty());

    const QTreeWidgetItem* pages = results->topLevelItem(1);
    QVERIFY(pages->childCount() > 1);
    QTreeWidgetItem* page = pages->child(pages->childCount() - 1);
    QVERIFY2(page->toolTip(0).contains("MTIE"), qPrintable(page->toolTip(0)));
    emit results->itemActivated(page, 0);
    const QString chosen = help.browser->pageName();
    QVERIFY(!chosen.isEmpty() && chosen != "stat-mtie");
    const auto marks = help.browser->extraSelections();
    QVERIFY(!marks.isEmpty());
    for (const auto& mark : marks)
        QCOMPARE(mark.cursor.selectedText(), QStringLiteral("MTIE"));

    QTest::keyClick(field, Qt::Key_Escape);
    QVERIFY(!results->isVisible());
    field->setText("йцукенгшщз");
    QCOMPARE(results->topLevelItem(0)->text(0), QStringLiteral("Ничего не найдено"));
    QTest::keyClick(field, Qt::Key_Down);
    QTest::keyClick(field, Qt::Key_Return);
    QCOMPARE(help.browser->pageName(), chosen);
}

void TestHelpForm::findsInPage()
{
    Help help;
    help.browser->setHtml("<p>one Tau two</p><p>three tau</p>");
    QTest::keyClick(help.browser, Qt::Key_F, Qt::ControlModifier);
    auto* field = help.child<QLineEdit>("findField");
    QTRY_VERIFY(field->isVisible());
    const auto place = [&help] { return help.browser->textCursor().selectionStart(); };
    const int first = help.text().indexOf("Tau"), second = help.text().indexOf("tau");
    QTest::keyClicks(field, "tau");
    QCOMPARE(place(), first); // typing on stays at the place
    QTest::keyClick(field, Qt::Key_Return);
    QCOMPARE(place(), second);
    QTest::keyClick(field, Qt::Key_F3);
    QCOMPARE(place(), first); // round the end
    QTest::keyClick(field, Qt::Key_Return, Qt::ShiftModifier);
    QCOMPARE(place(), second); // and round the beginning
    QTest::keyClick(field, Qt::Key_F3, Qt::ShiftModifier);
    QCOMPARE(place(), first);

    auto* result = help.child<QLabel>("findResult");
    QCOMPARE(result->text(), QString());
    QTest::keyClicks(field, "x");
    QCOMPARE(result->text(), QStringLiteral("Не найдено"));
    QVERIFY(!help.browser->textCursor().hasSelection());
    QTest::keyClick(field, Qt::Key_Escape);
    QVERIFY(!field->isVisible());
}

void TestHelpForm::asksBeforeOutside()
{
    const HelpCopy copy;
    Help help(copy.collection());
    help.form.showPage("index");
    Desktop desktop;
    ScopedPrompts prompts;
    const QUrl outside("https://example.org/page");
    prompts.press(QMessageBox::No);
    emit help.browser->anchorClicked(outside);
    QVERIFY(desktop.opened.isEmpty());
    QVERIFY2(prompts.seen.value(0).text.contains("https://example.org/page"),
        qPrintable(prompts.seen.value(0).text));
    prompts.press(QMessageBox::Yes);
    emit help.browser->anchorClicked(outside);
    QCOMPARE(desktop.opened, QList<QUrl>{outside});
    QCOMPARE(help.browser->pageName(), QStringLiteral("index"));
    // What a page shows is never fetched from outside.
    QVERIFY(
        !help.browser->loadResource(QTextDocument::ImageResource, QUrl("file:///etc/hostname")).isValid());
    QVERIFY(!help.browser->loadResource(QTextDocument::HtmlResource, outside).isValid());
}

void TestHelpForm::zooms()
{
    Help help;
    const double own = help.browser->font().pointSizeF();
    QAction* larger = help.action(QKeySequence(Qt::CTRL + Qt::Key_Plus));
    QAction* smaller = help.action(QKeySequence(Qt::CTRL + Qt::Key_Minus));
    larger->trigger();
    QCOMPARE(help.browser->font().pointSizeF(), own + 1);
    for (int i = 0; i < 100; ++i)
        smaller->trigger();
    QCOMPARE(help.browser->font().pointSizeF(), 6.0);
    for (int i = 0; i < 100; ++i)
        larger->trigger();
    QCOMPARE(help.browser->font().pointSizeF(), 40.0);
    help.action(QKeySequence(Qt::CTRL + Qt::Key_0))->trigger();
    QCOMPARE(help.browser->font().pointSizeF(), own);
}

void TestHelpForm::fitsPictures()
{
    const HelpCopy copy;
    Help help(copy.collection());
    help.form.resize(600, 400);
    help.form.showPage("record-table");
    QUrl name;
    const QTextDocument* page = help.browser->document();
    for (QTextBlock block = page->begin(); block.isValid(); block = block.next()) {
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            if (part.fragment().charFormat().isImageFormat())
                name = QUrl(part.fragment().charFormat().toImageFormat().name());
        }
    }
    QVERIFY(!name.isEmpty());
    const auto shown = [&] {
        return page->resource(QTextDocument::ImageResource, name).value<QImage>().width();
    };
    const QUrl file = QUrl("qthelp://kronalys.help/doc/").resolved(name);
    const int own = QImage::fromData(help.engine->fileData(file)).width();
    QVERIFY(own > 600);
    const int narrow = shown();
    QVERIFY2(narrow > 0 && narrow < help.browser->viewport()->width(), qPrintable(QString::number(narrow)));
    help.form.resize(800, 400);
    QTRY_VERIFY(shown() > narrow && shown() < help.browser->viewport()->width());
    help.form.resize(own + 800, 400);
    QTRY_COMPARE(shown(), own); // never larger than it is
}

void TestHelpForm::prints()
{
    const HelpCopy copy;
    Help help(copy.collection());
    help.form.showPage("index");
    const QTemporaryDir dir;
    const QString file = dir.filePath("page.pdf");
    ScopedPrompts prompts;
    prompts.handle([](QDialog&) { return int(QDialog::Rejected); });
    help.form.printPage();
    prompts.handle([&file](QDialog& dialog) {
        auto* chooser = qobject_cast<QPrintDialog*>(&dialog);
        if (chooser)
            chooser->printer()->setOutputFileName(file);
        return int(QDialog::Accepted);
    });
    help.form.printPage();
    QVERIFY(bytesOf(file).startsWith("%PDF"));
}

void TestHelpForm::changesLanguage()
{
    const HelpCopy russian, english("KronalysHelp_english");
    Help help(russian.collection());
    help.form.showPage("index");
    help.form.showPage("record-table");
    const QString before = help.text();
    QHelpEngine other(english.collection());
    help.form.setEngine(&other);
    other.setupData();
    QVERIFY(help.text() != before);
    QCOMPARE(help.browser->pageName(), QStringLiteral("record-table"));
    auto* tree = help.child<QTreeView>("contentsTree");
    QTRY_COMPARE(tree->currentIndex().data().toString(), QStringLiteral("Record table"));
    help.form.showPrevious(); // the way back leads through pages of the new language
    QCOMPARE(help.browser->pageName(), QStringLiteral("index"));
    help.form.setEngine(nullptr);
}

QTEST_MAIN(TestHelpForm)
#include "tst_helpform.moc"
