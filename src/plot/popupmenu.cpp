#include "plot/popupmenu.h"

#include <QAction>
#include <QEvent>
#include <QKeySequence>
#include <QMouseEvent>

popupmenu::popupmenu(QWidget* watched)
    : QMenu(watched)
    , m_copySelected(addAction(QString()))
    , m_copyAll(addAction(QString()))
    , m_save(nullptr)
    , m_print(nullptr)
{
    addSeparator();
    m_save = addAction(QString());
    m_print = addAction(QString());
    m_copySelected->setShortcut(QKeySequence::Copy);
    m_copySelected->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    m_copySelected->setShortcutVisibleInContextMenu(true);
    retranslate();
    watched->installEventFilter(this);
    connect(this, &QMenu::triggered, this, &popupmenu::onClick);
}

void popupmenu::retranslate()
{
    m_copySelected->setText(tr("Копировать выделенное"));
    m_copyAll->setText(tr("Копировать всю таблицу"));
    m_save->setText(tr("Сохранить таблицу в файл"));
    m_print->setText(tr("Печать таблицы"));
}

void popupmenu::onClick(QAction* action)
{
    const QString text = action->text();
    if (text == tr("Копировать выделенное"))
        emit copySelected();
    else if (text == tr("Копировать всю таблицу"))
        emit copyAllTab();
    else if (text == tr("Сохранить таблицу в файл"))
        emit saveTab();
    else if (text == tr("Печать таблицы"))
        emit printTab();
}

bool popupmenu::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == parent() && event->type() == QEvent::MouseButtonPress) {
        const auto* press = static_cast<QMouseEvent*>(event);
        if (press->button() == Qt::RightButton)
            popup(press->globalPos());
    }
    // The press goes on to the table, which selects the row under it unless it is selected already.
    return QMenu::eventFilter(watched, event);
}

void popupmenu::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QMenu::changeEvent(event);
}
