#pragma once

#include "plot/avarform.h"

#include <QTest>
#include <qwt_plot_curve.h>

#include <cmath>

// What the tests of graph windows share.

const QDateTime start(QDate(2025, 2, 1), QTime(10, 0));

/// Adds a falling curve whose bars fit a record of `span` seconds.
inline void add(
    AvarForm& form, unsigned short channel, int points, unsigned short axis = 0, double span = 1e6)
{
    QVector<double> tau;
    QVector<double> value;
    for (int i = 0; i < points; ++i) {
        tau << std::pow(10.0, i / 3.0);
        value << 1e-11 / std::sqrt(tau.last()) * (channel + 1);
    }
    form.addData(channel, points, tau.data(), value.data(), axis, start, start.addSecs(qint64(span)));
    form.setCurveTitle(form.curveCount - 1, QString("rec %1").arg(channel));
}

inline QVector<QPointF> samples(const QwtPlotCurve& curve)
{
    QVector<QPointF> points;
    for (size_t i = 0; i < curve.dataSize(); ++i)
        points << curve.sample(int(i));
    return points;
}

inline void showWindow(AvarForm& form)
{
    form.show();
    QVERIFY(QTest::qWaitForWindowExposed(&form));
}
