#pragma once

#include <QString>
#include <QVector>

/// The points of one curve as it stands in a graph.
struct PlotPoints {
    QString title;
    QVector<double> x;
    QVector<double> y;
};
