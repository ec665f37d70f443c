#pragma once

#include <QColor>
#include <QFont>
#include <QString>
#include <QVector>
#include <qwt_scale_draw.h>

/// Text of a tick in a form that depends on neither locale nor neighbours: plain from 0.001 to 99999, else
/// like "1e-12" or "2.5e6". `resolution` is the distance between ticks, so that neighbours read differently.
QString tickText(double value, double resolution);

/// Draws the bottom scale, or several Y scales side by side: the current one at the canvas and the others
/// left of it in the order given, each with its title in its colour.
class PlotScaleDraw : public QwtScaleDraw {
public:
    struct Neighbour {
        QwtScaleDiv div;
        bool logarithmic = false;
        QString title;
        QColor color;
    };

    /// Title and colour of the scale at the canvas. `font` is that of all scales: a painter's own may be
    /// measured for another device.
    void setOwn(const QString& title, const QColor& color, const QFont& font);
    void setNeighbours(const QVector<Neighbour>& neighbours);

    QwtText label(double value) const override;
    double extent(const QFont& font) const override;
    void draw(QPainter* painter, const QPalette& palette) const override;

private:
    double titleExtent(const QString& title) const;
    void drawTitle(QPainter* painter, const QString& title, const QColor& color, double right) const;
    void configure(QwtScaleDraw& draw, const Neighbour& neighbour) const;

    QString m_title;
    QFont m_font;
    QColor m_color = Qt::black;
    QVector<Neighbour> m_neighbours;
};
