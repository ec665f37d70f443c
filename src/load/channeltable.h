#pragma once

#include <QByteArray>
#include <QTableWidget>

/// The channels of a recording directory, each a column with a box that a press, or the space bar, fills or
/// empties. Columns count from 0, channels from 1.
class ChannelTable : public QTableWidget {
    Q_OBJECT
public:
    static constexpr int mostChannels = 16;
    static constexpr int usualChannels = 8; // shown unless the settings ask for all

    explicit ChannelTable(QWidget* parent = nullptr);

    /// Shows so many channels; those that are not shown are not chosen.
    void setShown(int count);
    /// The chosen channels, two bytes: bit n for column n, bits 0 to 7 in the first byte.
    QByteArray mask() const;
    void setMask(const QByteArray& mask);
    int chosenCount() const;
    void toggle(int column);
    void chooseAll(bool chosen);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    void changed();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent*) override { }
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    bool isChosen(int column) const;
    void setChosen(int column, bool chosen);
};
