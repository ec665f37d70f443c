#include "help/helpcontents.h"

#include "help/helpbrowser.h"

#include <QEvent>
#include <QHeaderView>
#include <QHelpContentItem>
#include <QHelpContentModel>
#include <QHelpEngine>
#include <QHelpIndexModel>
#include <QHelpLink>
#include <QKeyEvent>
#include <QLineEdit>
#include <QStackedWidget>
#include <QTextDocument>
#include <QTreeView>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <functional>

namespace {

constexpr int urlRole = Qt::UserRole;
constexpr int wordsRole = Qt::UserRole + 1; // whether the words are to be marked

void styleTree(QTreeView* tree)
{
    tree->setHeaderHidden(true);
    tree->setUniformRowHeights(true);
    tree->setTextElideMode(Qt::ElideNone);
    // Long entries scroll instead of being cut.
    tree->header()->setStretchLastSection(false);
    tree->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
}

} // namespace

HelpContents::HelpContents(QWidget* parent)
    : QWidget(parent)
    , m_field(new QLineEdit(this))
    , m_stack(new QStackedWidget(this))
    , m_contents(new QTreeView(m_stack))
    , m_results(new QTreeWidget(m_stack))
{
    m_field->setObjectName(QStringLiteral("searchField"));
    m_contents->setObjectName(QStringLiteral("contentsTree"));
    m_results->setObjectName(QStringLiteral("searchResults"));
    m_field->setClearButtonEnabled(true);
    m_field->installEventFilter(this);
    styleTree(m_contents);
    styleTree(m_results);
    m_results->setRootIsDecorated(false);
    m_results->setItemsExpandable(false);
    m_stack->addWidget(m_contents);
    m_stack->addWidget(m_results);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_field);
    layout->addWidget(m_stack, 1);

    connect(m_field, &QLineEdit::textChanged, this, &HelpContents::search);
    connect(m_field, &QLineEdit::returnPressed, this, [this] { chooseResult(firstResult()); });
    connect(m_contents, &QTreeView::clicked, this, &HelpContents::chooseContents);
    connect(m_contents, &QTreeView::activated, this, &HelpContents::chooseContents);
    connect(m_results, &QTreeWidget::itemClicked, this, &HelpContents::chooseResult);
    connect(m_results, &QTreeWidget::itemActivated, this, &HelpContents::chooseResult);
    retranslate();
}

void HelpContents::setEngine(QHelpEngine* engine)
{
    if (m_engine) {
        m_engine->contentModel()->disconnect(this);
        m_engine->indexModel()->disconnect(this);
    }
    m_engine = engine;
    m_pages.clear();
    QAbstractItemModel* const model = engine ? engine->contentModel() : nullptr;
    m_contents->setModel(model);
    if (engine) {
        connect(
            engine->contentModel(), &QHelpContentModel::contentsCreated, this, &HelpContents::contentsReady);
        connect(
            engine->indexModel(), &QHelpIndexModel::indexCreated, this, [this] { search(m_field->text()); });
        contentsReady();
    }
    search(m_field->text());
}

void HelpContents::contentsReady()
{
    m_pages.clear();
    m_contents->expandToDepth(0);
    showPlace(m_place);
}

void HelpContents::showPlace(const QUrl& page)
{
    m_place = page;
    if (!m_engine)
        return;
    const QHelpContentModel* model = m_engine->contentModel();
    const QUrl wanted = page.adjusted(QUrl::RemoveFragment);
    const std::function<QModelIndex(const QModelIndex&)> find = [&](const QModelIndex& parent) {
        for (int row = 0; row < model->rowCount(parent); ++row) {
            const QModelIndex entry = model->index(row, 0, parent);
            if (model->contentItemAt(entry)->url().adjusted(QUrl::RemoveFragment) == wanted)
                return entry;
            const QModelIndex below = find(entry);
            if (below.isValid())
                return below;
        }
        return QModelIndex();
    };
    const QModelIndex entry = find(QModelIndex());
    if (entry.isValid())
        m_contents->setCurrentIndex(entry);
    else
        m_contents->clearSelection();
}

void HelpContents::startSearch()
{
    m_field->setFocus();
    m_field->selectAll();
}

void HelpContents::readPages()
{
    if (!m_pages.isEmpty() || !m_engine)
        return;
    for (const QString& space : m_engine->registeredDocumentations()) {
        for (const QUrl& file : m_engine->files(space, QString(), QStringLiteral("html"))) {
            QTextDocument page;
            page.setHtml(QString::fromUtf8(m_engine->fileData(file)));
            QString name = file.fileName();
            name.chop(int(qstrlen(".html")));
            m_pages << HelpText{name, page.metaInformation(QTextDocument::DocumentTitle), page.toPlainText()};
        }
    }
}

void HelpContents::search(const QString& query)
{
    m_results->clear();
    const bool searching = !searchWords(query).isEmpty();
    m_stack->setCurrentWidget(searching ? static_cast<QWidget*>(m_results) : m_contents);
    if (!searching)
        return;
    if (m_engine) {
        addIndexEntries(query);
        addPages(query);
    }
    if (m_results->topLevelItemCount() == 0)
        addGroup(tr("Ничего не найдено"));
    m_results->expandAll();
}

QTreeWidgetItem* HelpContents::addGroup(const QString& title)
{
    auto* group = new QTreeWidgetItem(m_results, {title});
    group->setFlags(Qt::ItemIsEnabled);
    QFont bold = m_results->font();
    bold.setBold(true);
    group->setFont(0, bold);
    return group;
}

void HelpContents::addResult(
    QTreeWidgetItem* group, const QString& text, const QString& toolTip, const QUrl& page)
{
    auto* item = new QTreeWidgetItem(group, {text});
    item->setToolTip(0, toolTip);
    item->setData(0, urlRole, page);
}

void HelpContents::addIndexEntries(const QString& query)
{
    const QStringList words = searchWords(query);
    QTreeWidgetItem* group = nullptr;
    for (const QString& keyword : m_engine->indexModel()->stringList()) {
        const QString folded = foldedText(keyword);
        if (!std::all_of(
                words.begin(), words.end(), [&](const QString& word) { return folded.contains(word); }))
            continue;
        for (const QHelpLink& link : m_engine->documentsForKeyword(keyword)) {
            if (!group)
                group = addGroup(tr("Указатель"));
            addResult(group, keyword, link.title, link.url);
        }
    }
}

void HelpContents::addPages(const QString& query)
{
    readPages();
    QTreeWidgetItem* group = nullptr;
    for (const HelpHit& hit : searchPages(m_pages, query)) {
        if (!group)
            group = addGroup(tr("Страницы"));
        addResult(group, hit.title, hit.excerpt, helpBrowser::pageUrl(hit.page));
        group->child(group->childCount() - 1)->setData(0, wordsRole, true);
    }
}

QTreeWidgetItem* HelpContents::firstResult() const
{
    const QTreeWidgetItem* group = m_results->topLevelItem(0);
    return group ? group->child(0) : nullptr;
}

void HelpContents::chooseContents(const QModelIndex& index)
{
    const QHelpContentItem* item = m_engine ? m_engine->contentModel()->contentItemAt(index) : nullptr;
    if (item)
        emit pageChosen(item->url(), {});
}

void HelpContents::chooseResult(const QTreeWidgetItem* item)
{
    if (!item || !item->data(0, urlRole).isValid())
        return;
    const bool marked = item->data(0, wordsRole).toBool();
    emit pageChosen(item->data(0, urlRole).toUrl(), marked ? searchWords(m_field->text()) : QStringList());
}

/// The arrow key leads from the field into the list below, Esc clears the field.
bool HelpContents::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_field && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Escape && !m_field->text().isEmpty()) {
            m_field->clear();
            return true;
        }
        if (key == Qt::Key_Down) {
            m_stack->currentWidget()->setFocus();
            if (m_stack->currentWidget() == m_results)
                m_results->setCurrentItem(firstResult());
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void HelpContents::retranslate()
{
    m_field->setPlaceholderText(tr("Поиск в справке"));
    m_field->setToolTip(tr("Слова для поиска в указателе и на страницах справки (Ctrl+K)"));
    m_contents->setToolTip(tr("Содержание справки"));
    search(m_field->text());
}

void HelpContents::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}
