#pragma once

#include <QPointer>
#include <QString>
#include <QStringList>
#include <QUrl>
#include <QWidget>

class FindBar;
class HelpContents;
class QAction;
class QHelpEngine;
class QToolBar;
class helpBrowser;

/// The help window: contents tree and search on the left, the page on the right.
class HelpForm : public QWidget {
    Q_OBJECT
public:
    explicit HelpForm(QWidget* parent = nullptr);

    /// The collection to read from, not owned; null for none, which a page then tells. The page at hand
    /// stays. Called before the engine's setupData(), it also sees to it that a collection is only read, so
    /// that it may lie where nobody may write.
    void setEngine(QHelpEngine* engine);

public slots:
    /// Shows a page by its name ("record-table", "stat-adev#limits"); an empty name means the first page.
    void showPage(const QString& pageName);
    void showPrevious();
    void showNext();
    void showHome();
    void printPage();

signals:
    /// The user wants the page before or after the one shown; the receiver calls showPrevious() or
    /// showNext().
    void ShowPrev();
    void ShowNext();

protected:
    void changeEvent(QEvent* event) override;

private:
    void makeActions();
    QAction* addCommand(const QIcon& icon, const QKeySequence& key, void (HelpForm::*slot)());
    void retranslate();
    void goTo(const QUrl& page, const QStringList& words);
    void startFind();
    void find(const QString& text, bool backward, bool again);
    void zoomIn();
    void zoomOut();
    void zoomReset();
    void startSearch();
    void findNext();
    void findPrevious();

    QToolBar* m_bar;
    HelpContents* m_contents;
    helpBrowser* m_browser;
    FindBar* m_findBar;
    QAction* m_previous = nullptr;
    QAction* m_next = nullptr;
    QAction* m_home = nullptr;
    QAction* m_find = nullptr;
    QAction* m_zoomIn = nullptr;
    QAction* m_zoomOut = nullptr;
    QAction* m_zoomReset = nullptr;
    QAction* m_print = nullptr;
};
