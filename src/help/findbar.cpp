#include "help/findbar.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QStyle>
#include <QToolButton>

FindBar::FindBar(QWidget* parent)
    : QWidget(parent)
    , m_label(new QLabel(this))
    , m_field(new QLineEdit(this))
    , m_previous(new QToolButton(this))
    , m_next(new QToolButton(this))
    , m_close(new QToolButton(this))
    , m_result(new QLabel(this))
{
    m_field->setObjectName(QStringLiteral("findField"));
    m_result->setObjectName(QStringLiteral("findResult"));
    m_label->setBuddy(m_field);
    m_field->setClearButtonEnabled(true);
    m_previous->setIcon(style()->standardIcon(QStyle::SP_ArrowUp));
    m_next->setIcon(style()->standardIcon(QStyle::SP_ArrowDown));
    m_close->setIcon(style()->standardIcon(QStyle::SP_DockWidgetCloseButton));
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(4, 2, 4, 2);
    layout->addWidget(m_label);
    layout->addWidget(m_field, 1);
    for (QToolButton* button : {m_previous, m_next, m_close}) {
        button->setAutoRaise(true);
        button->setFocusPolicy(Qt::TabFocus);
    }
    layout->addWidget(m_previous);
    layout->addWidget(m_next);
    layout->addWidget(m_result);
    layout->addWidget(m_close);

    connect(m_field, &QLineEdit::textChanged, this, [this](const QString& text) {
        m_previous->setEnabled(!text.isEmpty());
        m_next->setEnabled(!text.isEmpty());
        emit wanted(text, false, false);
    });
    connect(m_previous, &QToolButton::clicked, this, [this] { emit wanted(text(), true, true); });
    connect(m_next, &QToolButton::clicked, this, [this] { emit wanted(text(), false, true); });
    connect(m_close, &QToolButton::clicked, this, &FindBar::finish);
    m_previous->setEnabled(false);
    m_next->setEnabled(false);
    retranslate();
}

void FindBar::start()
{
    show();
    m_field->setFocus();
    m_field->selectAll();
}

void FindBar::setFound(bool found)
{
    m_result->setText(found || text().isEmpty() ? QString() : tr("Не найдено"));
}

QString FindBar::text() const
{
    return m_field->text();
}

void FindBar::finish()
{
    hide();
    emit closed();
}

void FindBar::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        finish();
    else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        emit wanted(text(), event->modifiers() & Qt::ShiftModifier, true);
    else
        QWidget::keyPressEvent(event);
}

void FindBar::retranslate()
{
    m_label->setText(tr("На&йти:"));
    m_field->setToolTip(tr("Текст, который нужно найти на этой странице"));
    m_previous->setToolTip(tr("Предыдущее место (Shift+F3)"));
    m_next->setToolTip(tr("Следующее место (F3)"));
    m_close->setToolTip(tr("Закрыть строку поиска (Esc)"));
    if (!m_result->text().isEmpty())
        setFound(false);
}

void FindBar::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}
