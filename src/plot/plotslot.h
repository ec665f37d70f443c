#pragma once

#include "plot/plotform.h"
#include "plot/safecurves.h"

/// One of the 32 curves of a graph window and what belongs to it.
struct PlotForm::Slot {
    SafeCurve curve;
    SafeIntervalCurve bars;
    bool visible = false;
    unsigned short axis = 0;
    std::unique_ptr<QwtPlotCurve> average;
    std::unique_ptr<QwtPlotCurve> trend;
    QString text = QString(21, ' ');
    QPen pen;
};
