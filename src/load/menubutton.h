#pragma once

#include <QPushButton>

/// A button of the menu of sources: its text wraps at words, so that a long name does not widen the menu.
class MenuButton : public QPushButton {
    Q_OBJECT
public:
    explicit MenuButton(QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
};
