#include "plot/avarform.h"

#include <QAction>

ExportRequest AvarForm::exportRequest() const
{
    ExportRequest request = PlotForm::exportRequest();
    if (plotKind != 3)
        return request;
    request.withBars = true;
    const QVector<QVector<QwtIntervalSample>>& all = sqrt2Action->isChecked() ? m_barsSqrt2 : m_bars;
    int column = 0;
    for (int i = 0; i < curveCount; ++i) {
        if (!curveVisible(i))
            continue;
        for (const QwtIntervalSample& bar : all.value(i)) {
            request.columns[column].low << bar.interval.minValue();
            request.columns[column].high << bar.interval.maxValue();
        }
        ++column;
    }
    return request;
}
