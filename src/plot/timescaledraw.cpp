#include "plot/timescaledraw.h"

#include "plot/core/timeaxis.h"

#include <qwt_text.h>

#include <cmath>

namespace {

constexpr double secondsPerDay = 86400.0;

} // namespace

TimeScaleDraw::TimeScaleDraw(const QTime& base)
    : m_base(base)
{
}

QwtText TimeScaleDraw::label(double value) const
{
    if (!std::isfinite(value))
        return {};
    // The remainder has the sign of the value. Ticks are sums of steps: rounded to 1 ms, none falls short of
    // its minute.
    const int ms = int(std::lround(std::fmod(value, secondsPerDay) * 1000.0));
    return QwtText(m_base.addMSecs(ms).toString(QStringLiteral("hh:mm")), QwtText::PlainText);
}

DateScaleDraw::DateScaleDraw(const QDateTime& base)
    : m_base(base)
{
}

QwtText DateScaleDraw::label(double value) const
{
    const QDateTime time = TimeAxis{m_base}.timeOf(value);
    return QwtText(time.toString(QStringLiteral("dd.MM")), QwtText::PlainText);
}
