#pragma once

#include "help/core/pagesearch.h"

#include <QPointer>
#include <QString>
#include <QStringList>
#include <QUrl>
#include <QVector>
#include <QWidget>

class QHelpEngine;
class QLineEdit;
class QModelIndex;
class QStackedWidget;
class QTreeView;
class QTreeWidget;
class QTreeWidgetItem;

/// The way to the pages: the contents tree and, while a text stands in the field above it, the index entries
/// and the pages in which that text occurs.
class HelpContents : public QWidget {
    Q_OBJECT
public:
    explicit HelpContents(QWidget* parent = nullptr);

    /// The collection to read from, not owned; null for none.
    void setEngine(QHelpEngine* engine);
    /// Marks the entry of a page in the contents tree.
    void showPlace(const QUrl& page);
    /// Puts the keyboard into the field.
    void startSearch();

signals:
    /// A page was chosen; `words` are those to be marked in it.
    void pageChosen(const QUrl& page, const QStringList& words);

protected:
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void retranslate();
    void contentsReady();
    void readPages();
    void search(const QString& query);
    void addIndexEntries(const QString& query);
    void addPages(const QString& query);
    QTreeWidgetItem* addGroup(const QString& title);
    void addResult(QTreeWidgetItem* group, const QString& text, const QString& toolTip, const QUrl& page);
    void chooseContents(const QModelIndex& index);
    void chooseResult(const QTreeWidgetItem* item);
    QTreeWidgetItem* firstResult() const;

    QPointer<QHelpEngine> m_engine;
    QVector<HelpText> m_pages; // read at the first search
    QUrl m_place;
    QLineEdit* m_field;
    QStackedWidget* m_stack;
    QTreeView* m_contents;
    QTreeWidget* m_results;
};
