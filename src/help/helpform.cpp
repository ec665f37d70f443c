#include "help/helpform.h"

#include "help/findbar.h"
#include "help/helpbrowser.h"
#include "help/helpcontents.h"
#include "prompt/prompt.h"

#include <QAction>
#include <QEvent>
#include <QFileInfo>
#include <QHelpEngine>
#include <QIcon>
#include <QKeySequence>
#include <QPrinter>
#include <QShortcut>
#include <QSplitter>
#include <QStyle>
#include <QToolBar>
#include <QVBoxLayout>

namespace {

constexpr int contentsWidth = 230; // pixels at the start
constexpr int pageWidth = 560;
constexpr int formHeight = 520;

/// The text of a tooltip, with the key of its command behind.
QString withKey(const QString& text, const QAction* action)
{
    const QString key = action->shortcut().toString(QKeySequence::NativeText);
    return key.isEmpty() ? text : QStringLiteral("%1 (%2)").arg(text, key);
}

} // namespace

HelpForm::HelpForm(QWidget* parent)
    : QWidget(parent)
    , m_bar(new QToolBar(this))
    , m_contents(new HelpContents(this))
    , m_browser(new helpBrowser(this))
    , m_findBar(new FindBar(this))
{
    m_browser->setObjectName(QStringLiteral("helpPage"));
    auto* right = new QWidget(this);
    auto* page = new QVBoxLayout(right);
    page->setContentsMargins(0, 0, 0, 0);
    page->setSpacing(0);
    page->addWidget(m_browser, 1);
    page->addWidget(m_findBar);
    m_findBar->hide();

    auto* splitter = new QSplitter(Qt::Horizontal, this);
    splitter->addWidget(m_contents);
    splitter->addWidget(right);
    splitter->setStretchFactor(1, 1);
    splitter->setSizes({contentsWidth, pageWidth});
    splitter->setChildrenCollapsible(false);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 0, 4, 4);
    layout->setSpacing(2);
    layout->addWidget(m_bar);
    layout->addWidget(splitter, 1);
    resize(contentsWidth + pageWidth, formHeight);

    makeActions();
    connect(m_contents, &HelpContents::pageChosen, this, &HelpForm::goTo);
    connect(m_browser, &QTextBrowser::sourceChanged, m_contents, &HelpContents::showPlace);
    connect(m_browser, &QTextBrowser::backwardAvailable, m_previous, &QAction::setEnabled);
    connect(m_browser, &QTextBrowser::forwardAvailable, m_next, &QAction::setEnabled);
    connect(m_findBar, &FindBar::wanted, this, &HelpForm::find);
    connect(m_findBar, &FindBar::closed, m_browser, [this] { m_browser->setFocus(); });
    setFocusProxy(m_browser);
    m_browser->setFocus(); // not the search field, which comes first in the order of the keys
    retranslate();
}

/// One entry of the bar, whose key works anywhere in this window and in no other.
QAction* HelpForm::addCommand(const QIcon& icon, const QKeySequence& key, void (HelpForm::*slot)())
{
    QAction* action = m_bar->addAction(icon, QString());
    action->setShortcut(key);
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    addAction(action);
    connect(action, &QAction::triggered, this, slot);
    return action;
}

void HelpForm::makeActions()
{
    m_previous = addCommand(style()->standardIcon(QStyle::SP_ArrowBack), QKeySequence(Qt::ALT + Qt::Key_Left),
        &HelpForm::ShowPrev);
    m_next = addCommand(style()->standardIcon(QStyle::SP_ArrowForward), QKeySequence(Qt::ALT + Qt::Key_Right),
        &HelpForm::ShowNext);
    m_home = addCommand(QIcon(), QKeySequence(Qt::ALT + Qt::Key_Home), &HelpForm::showHome);
    m_bar->addSeparator();
    m_find = addCommand(
        style()->standardIcon(QStyle::SP_FileDialogContentsView), QKeySequence::Find, &HelpForm::startFind);
    m_zoomIn = addCommand(QIcon(), QKeySequence(Qt::CTRL + Qt::Key_Plus), &HelpForm::zoomIn);
    m_zoomOut = addCommand(QIcon(), QKeySequence(Qt::CTRL + Qt::Key_Minus), &HelpForm::zoomOut);
    m_zoomReset = addCommand(QIcon(), QKeySequence(Qt::CTRL + Qt::Key_0), &HelpForm::zoomReset);
    m_bar->addSeparator();
    m_print =
        addCommand(QIcon(QStringLiteral(":/bmp/bmp/PRT-UP.BMP")), QKeySequence::Print, &HelpForm::printPage);
    m_previous->setEnabled(false);
    m_next->setEnabled(false);

    // On most keyboards the plus sign needs Shift, and the key without it is "=".
    m_zoomIn->setShortcuts({QKeySequence(Qt::CTRL + Qt::Key_Plus), QKeySequence(Qt::CTRL + Qt::Key_Equal)});
    const auto addKey = [this](const QKeySequence& key, void (HelpForm::*slot)()) {
        auto* shortcut = new QShortcut(key, this);
        shortcut->setContext(Qt::WidgetWithChildrenShortcut);
        connect(shortcut, &QShortcut::activated, this, slot);
    };
    addKey(QKeySequence(Qt::CTRL + Qt::Key_K), &HelpForm::startSearch);
    addKey(QKeySequence(Qt::Key_F3), &HelpForm::findNext);
    addKey(QKeySequence(Qt::SHIFT + Qt::Key_F3), &HelpForm::findPrevious);
}

void HelpForm::setEngine(QHelpEngine* engine)
{
    // Qt writes into a collection whose page file is of another time than noted, as after every copying, and
    // shows no contents where it may not. A collection that is missing is left to be made.
    if (engine && QFileInfo::exists(engine->collectionFile()))
        engine->setProperty("_q_readonly", true);
    m_contents->setEngine(engine);
    m_browser->setEngine(engine);
    if (!engine)
        return;
    connect(engine, &QHelpEngine::setupFinished, m_browser, &helpBrowser::reload);
    connect(engine, &QObject::destroyed, m_browser, &helpBrowser::reload);
}

void HelpForm::showPage(const QString& pageName)
{
    goTo(helpBrowser::pageUrl(pageName), {});
}

void HelpForm::goTo(const QUrl& page, const QStringList& words)
{
    m_browser->setSource(page);
    m_browser->markWords(words);
}

void HelpForm::showPrevious()
{
    m_browser->backward();
}

void HelpForm::showNext()
{
    m_browser->forward();
}

void HelpForm::showHome()
{
    showPage(QString());
}

void HelpForm::printPage()
{
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(m_browser->documentTitle());
    if (prompt::print(this, &printer))
        m_browser->print(&printer);
}

void HelpForm::startFind()
{
    m_findBar->start();
}

void HelpForm::find(const QString& text, bool backward, bool again)
{
    m_findBar->setFound(m_browser->findText(text, backward, again));
}

void HelpForm::findNext()
{
    find(m_findBar->text(), false, true);
}

void HelpForm::findPrevious()
{
    find(m_findBar->text(), true, true);
}

void HelpForm::startSearch()
{
    m_contents->startSearch();
}

void HelpForm::zoomIn()
{
    m_browser->zoomBy(1);
}

void HelpForm::zoomOut()
{
    m_browser->zoomBy(-1);
}

void HelpForm::zoomReset()
{
    m_browser->resetZoom();
}

void HelpForm::retranslate()
{
    setWindowTitle(tr("Справка"));
    m_previous->setText(tr("Назад"));
    m_previous->setToolTip(withKey(tr("К предыдущей странице"), m_previous));
    m_next->setText(tr("Вперёд"));
    m_next->setToolTip(withKey(tr("К следующей странице"), m_next));
    m_home->setText(tr("Начало"));
    m_home->setToolTip(withKey(tr("К началу справки"), m_home));
    m_find->setText(tr("Найти"));
    m_find->setToolTip(withKey(tr("Найти текст на этой странице"), m_find));
    m_zoomIn->setText(tr("А+"));
    m_zoomIn->setToolTip(withKey(tr("Крупнее"), m_zoomIn));
    m_zoomOut->setText(tr("А−"));
    m_zoomOut->setToolTip(withKey(tr("Мельче"), m_zoomOut));
    m_zoomReset->setText(tr("100%"));
    m_zoomReset->setToolTip(withKey(tr("Обычный размер текста"), m_zoomReset));
    m_print->setText(tr("Печать"));
    m_print->setToolTip(withKey(tr("Напечатать эту страницу"), m_print));
}

void HelpForm::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}
