#include "load/pathhistory.h"

#include <QAction>
#include <QCompleter>
#include <QLineEdit>
#include <QStringListModel>
#include <QStyle>

PathHistory::PathHistory(QLineEdit* field, const QString& name)
    : QObject(field)
    , m_model(new QStringListModel(this))
{
    auto* completer = new QCompleter(m_model, field);
    completer->setCaseSensitivity(Qt::CaseInsensitive);
    completer->setFilterMode(Qt::MatchContains);
    field->setCompleter(completer);
    m_arrow =
        field->addAction(field->style()->standardIcon(QStyle::SP_ArrowDown), QLineEdit::TrailingPosition);
    m_arrow->setObjectName(name);
    connect(m_arrow, &QAction::triggered, completer, [completer] {
        completer->setCompletionPrefix(QString());
        completer->complete();
    });
}

void PathHistory::add(const QString& path, int most)
{
    if (path.isEmpty())
        return;
    m_paths.removeAll(path);
    m_paths.prepend(path);
    while (m_paths.size() > qMax(1, most))
        m_paths.removeLast();
}

void PathHistory::offer(const QStringList& further, const QString& toolTip)
{
    QStringList offers = m_paths + further;
    offers.removeDuplicates();
    m_model->setStringList(offers);
    m_arrow->setVisible(!offers.isEmpty());
    m_arrow->setToolTip(toolTip);
}
