#include "load/menubutton.h"

#include <QStyleOptionButton>
#include <QStylePainter>

namespace {

constexpr int letters = 10; // that stand side by side
constexpr int flags = Qt::AlignCenter | Qt::TextWordWrap | Qt::TextShowMnemonic;
constexpr QSize frame(12, 14);

} // namespace

MenuButton::MenuButton(QWidget* parent)
    : QPushButton(parent)
{
}

QSize MenuButton::sizeHint() const
{
    const int width = fontMetrics().averageCharWidth() * letters;
    const QSize text = fontMetrics().boundingRect(QRect(0, 0, width, 1000), flags, this->text()).size();
    return QSize(qMax(width, text.width()), text.height()) + frame;
}

void MenuButton::paintEvent(QPaintEvent*)
{
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    painter.drawControl(QStyle::CE_PushButtonBevel, option);
    painter.drawItemText(style()->subElementRect(QStyle::SE_PushButtonContents, &option, this), flags,
        palette(), isEnabled(), text(), QPalette::ButtonText);
    if (hasFocus()) {
        QStyleOptionFocusRect focus;
        focus.QStyleOption::operator=(option);
        focus.rect = style()->subElementRect(QStyle::SE_PushButtonFocusRect, &option, this);
        painter.drawPrimitive(QStyle::PE_FrameFocusRect, focus);
    }
}
