#pragma once

#include <QMenu>

/// The context menu of a result table: opens where the right button is pressed on the watched widget.
class popupmenu : public QMenu {
    Q_OBJECT
public:
    /// `watched` is the widget whose right button presses open the menu.
    explicit popupmenu(QWidget* watched);

    /// The command "copy the selection", which has a key of its own.
    QAction* copyAction() const { return m_copySelected; }

    bool eventFilter(QObject* watched, QEvent* event) override;

public slots:
    /// Sends the signal of the item whose text the action has.
    void onClick(QAction* action);

signals:
    void copySelected();
    void copyAllTab();
    void saveTab();
    void printTab();

protected:
    void changeEvent(QEvent* event) override;

private:
    void retranslate();

    QAction* m_copySelected;
    QAction* m_copyAll;
    QAction* m_save;
    QAction* m_print;
};
