#include "plot/plotscaledraw.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPalette>
#include <qwt_scale_map.h>
#include <qwt_text.h>
#include <qwt_transform.h>

#include <algorithm>
#include <cmath>

namespace {

/// Pixels between two scales, and between labels and title.
constexpr double scaleGap = 10.0;
constexpr double titleGap = 4.0;

/// A logarithmic scale by decades needs no common resolution: its ticks differ by their powers.
QwtText scaleLabel(const QwtScaleDraw& draw, double value)
{
    const QList<double> ticks = draw.scaleDiv().ticks(QwtScaleDiv::MajorTick);
    const bool decades = draw.scaleMap().transformation() && ticks.size() > 1 && ticks[1] >= 2.0 * ticks[0];
    return tickText(value, decades || ticks.size() < 2 ? 0.0 : ticks[1] - ticks[0]);
}

/// A neighbour's scale: the same labels, no neighbours of its own.
class SingleScaleDraw : public QwtScaleDraw {
public:
    QwtText label(double value) const override { return scaleLabel(*this, value); }
};

QPalette colored(const QPalette& palette, const QColor& color)
{
    QPalette result = palette;
    result.setColor(QPalette::Text, color);
    result.setColor(QPalette::WindowText, color);
    return result;
}

} // namespace

QString tickText(double value, double resolution)
{
    if (std::fabs(value) < 1e-9 * std::fabs(resolution))
        return QStringLiteral("0");
    const double size = std::fabs(value);
    int digits = 6;
    if (resolution != 0.0 && std::isfinite(size / resolution))
        digits = std::clamp(int(std::ceil(std::log10(size / std::fabs(resolution)))) + 1, 6, 15);
    if (size == 0.0 || (size >= 0.001 && size < 99999.5))
        return QString::number(value, 'g', digits);
    QString text = QString::number(value, 'e', digits - 1);
    const int split = text.indexOf('e');
    QString mantissa = text.left(split);
    while (mantissa.contains('.') && (mantissa.endsWith('0') || mantissa.endsWith('.')))
        mantissa.chop(1);
    return mantissa + 'e' + QString::number(text.mid(split + 1).toInt());
}

void PlotScaleDraw::setOwn(const QString& title, const QColor& color, const QFont& font)
{
    m_font = font;
    m_title = title;
    m_color = color;
}

void PlotScaleDraw::setNeighbours(const QVector<Neighbour>& neighbours)
{
    m_neighbours = neighbours;
}

QwtText PlotScaleDraw::label(double value) const
{
    return scaleLabel(*this, value);
}

double PlotScaleDraw::titleExtent(const QString& title) const
{
    return title.isEmpty() ? 0.0 : titleGap + QFontMetricsF(m_font).height();
}

void PlotScaleDraw::configure(QwtScaleDraw& draw, const Neighbour& neighbour) const
{
    draw.setAlignment(alignment());
    draw.setScaleDiv(neighbour.div);
    draw.setTransformation(neighbour.logarithmic ? new QwtLogTransform : nullptr);
    draw.setLength(length());
}

double PlotScaleDraw::extent(const QFont& font) const
{
    double sum = QwtScaleDraw::extent(font) + titleExtent(m_title);
    for (const Neighbour& neighbour : m_neighbours) {
        SingleScaleDraw single;
        configure(single, neighbour);
        sum += scaleGap + single.extent(font) + titleExtent(neighbour.title);
    }
    return sum;
}

void PlotScaleDraw::drawTitle(
    QPainter* painter, const QString& title, const QColor& color, double right) const
{
    if (title.isEmpty())
        return;
    const QFontMetricsF metrics(m_font);
    QwtText text(metrics.elidedText(title, Qt::ElideRight, length()), QwtText::PlainText);
    text.setColor(color);
    text.setRenderFlags(Qt::AlignCenter);
    painter->save();
    painter->translate(right - titleGap - metrics.height(), pos().y() + length());
    painter->rotate(-90.0);
    text.draw(painter, QRectF(0.0, 0.0, length(), metrics.height()));
    painter->restore();
}

void PlotScaleDraw::draw(QPainter* painter, const QPalette& palette) const
{
    QwtScaleDraw::draw(painter, colored(palette, m_color));
    double right = pos().x() - QwtScaleDraw::extent(m_font);
    drawTitle(painter, m_title, m_color, right);
    right -= titleExtent(m_title);
    for (const Neighbour& neighbour : m_neighbours) {
        SingleScaleDraw single;
        configure(single, neighbour);
        right -= scaleGap;
        single.move(right, pos().y());
        single.draw(painter, colored(palette, neighbour.color));
        right -= single.extent(m_font);
        drawTitle(painter, neighbour.title, neighbour.color, right);
        right -= titleExtent(neighbour.title);
    }
}
