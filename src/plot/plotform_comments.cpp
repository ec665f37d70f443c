#include "plot/plotform.h"

#include "plot/core/commenttext.h"
#include "plot/insplotcomment.h"
#include "plot/plotcomments.h"

#include <QAction>
#include <QMenu>
#include <qwt_text_label.h>

void PlotForm::showCommentDialog()
{
    m_commentDialog->show();
}

void PlotForm::setPlotComment(QString text)
{
    m_comments->add(commentMarkup(text));
}

QList<QwtTextLabel*> PlotForm::comments() const
{
    return m_comments->labels();
}

void PlotForm::showCommentMenu(QwtTextLabel* label, const QPoint& pos)
{
    m_menuLabel = label;
    m_correctAction->setText(tr("Редактировать комментарий"));
    m_deleteAction->setText(tr("Удалить комментарий"));
    m_commentMenu->popup(pos);
}

void PlotForm::CommentLabelContextMenuTrigg()
{
    if (m_menuLabel)
        emit SetTmpLabel(m_menuLabel);
}

void PlotForm::CommentLabelContextMenuTrigg1()
{
    if (m_menuLabel)
        emit SetTmpLabel1(m_menuLabel);
}
