#pragma once

#include <QScrollArea>

/// Fields that scroll up and down, never sideways, when the window is too low for them. It looks like the
/// page it stands on.
class FieldsArea : public QScrollArea {
    Q_OBJECT
public:
    explicit FieldsArea(QWidget* parent = nullptr);

    /// Room for all fields.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;
};
