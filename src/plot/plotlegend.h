#pragma once

#include <qwt_legend.h>
#include <qwt_legend_label.h>

/// A legend whose entries carry check boxes. Entries that do not fit side by side stand in columns of equal
/// width, and a title too long for its column is shortened in the middle.
class PlotLegend : public QwtLegend {
    Q_OBJECT
public:
    explicit PlotLegend(QWidget* parent = nullptr);

    /// Wide enough for all entries in one row.
    QSize sizeHint() const override;
    /// Shortens the entries for this width on the way.
    int heightForWidth(int width) const override;
    void renderItem(
        QPainter* painter, const QWidget* widget, const QRectF& rect, bool fillBackground) const override;

protected:
    QWidget* createWidget(const QwtLegendData& data) const override;
};

/// One entry: check box, line sample, title. The title of an unchecked entry is gray.
class LegendCheck : public QwtLegendLabel {
    Q_OBJECT
public:
    explicit LegendCheck(QWidget* parent = nullptr);

    /// Without a limit.
    int naturalWidth() const;
    void setWidthLimit(int limit);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

    /// Line sample and title, shortened where it must be.
    void drawEntry(QPainter* painter, const QRectF& rect) const;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    int m_limit = QWIDGETSIZE_MAX;
};
