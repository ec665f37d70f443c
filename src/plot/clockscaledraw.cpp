#include "plot/clockscaledraw.h"

#include "plot/core/timeaxis.h"

#include <QPainter>
#include <qwt_scale_map.h>
#include <qwt_text.h>

#include <algorithm>
#include <cmath>

namespace {

constexpr double minute = 60.0; // s
constexpr double day = 86400.0; // s
constexpr double year = 366.0 * day;

/// Between the major ticks; a minute for a scale with one or none.
double stepOf(const QwtScaleDraw& draw)
{
    const QList<double> ticks = draw.scaleDiv().ticks(QwtScaleDiv::MajorTick);
    return ticks.size() > 1 ? std::fabs(ticks[1] - ticks[0]) : minute;
}

/// Of so many labels only every n-th has room; the same ones whatever part of the scale is shown.
bool hasRoom(const QwtScaleDraw& draw, double value, const QFont& font)
{
    constexpr double gap = 8.0; // pixels
    const double step = stepOf(draw);
    const QList<double> ticks = draw.scaleDiv().ticks(QwtScaleDiv::MajorTick);
    const double first = ticks.isEmpty() ? 0.0 : std::remainder(ticks.first(), step);
    const double pixels = std::fabs(draw.scaleMap().transform(step) - draw.scaleMap().transform(0.0));
    const double width = draw.label(value).textSize(font).width() + gap;
    const double every = std::ceil(width / std::max(pixels, 1.0));
    return std::fmod(std::round((value - first) / step), every) == 0.0;
}

} // namespace

ClockScaleDraw::ClockScaleDraw(const QTime& base)
    : TimeScaleDraw(base)
    , m_base(base)
{
}

QwtText ClockScaleDraw::label(double value) const
{
    const double distance = stepOf(*this);
    if (distance >= minute || !std::isfinite(value))
        return TimeScaleDraw::label(value);
    const QString form = distance < 1.0 ? QStringLiteral("hh:mm:ss.zzz") : QStringLiteral("hh:mm:ss");
    const int ms = int(std::lround(std::fmod(value, day) * 1000.0));
    return {m_base.addMSecs(ms).toString(form), QwtText::PlainText};
}

void ClockScaleDraw::drawLabel(QPainter* painter, double value) const
{
    if (hasRoom(*this, value, painter->font()))
        TimeScaleDraw::drawLabel(painter, value);
}

CalendarScaleDraw::CalendarScaleDraw(const QDateTime& base)
    : DateScaleDraw(base)
    , m_base(base)
{
}

QwtText CalendarScaleDraw::label(double value) const
{
    if (scaleDiv().range() <= year)
        return DateScaleDraw::label(value);
    const QDateTime time = TimeAxis{m_base}.timeOf(value);
    return {time.toString(QStringLiteral("dd.MM.yyyy")), QwtText::PlainText};
}

void CalendarScaleDraw::drawLabel(QPainter* painter, double value) const
{
    if (hasRoom(*this, value, painter->font()))
        DateScaleDraw::drawLabel(painter, value);
}
