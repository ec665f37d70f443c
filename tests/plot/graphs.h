#pragma once

#include "plot/avarform.h"
#include "plot/multiaxisplot.h"

#include <QApplication>
#include <QTest>
#include <QWheelEvent>
#include <qtestspontaneevent.h>
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

inline void turnWheel(PlotForm& form, const QPoint& pixel, int notches, Qt::KeyboardModifiers modifiers = {})
{
    QWidget* canvas = form.plot()->canvas();
    QWheelEvent event(pixel, canvas->mapToGlobal(pixel), QPoint(), QPoint(0, 120 * notches), Qt::NoButton,
        modifiers, Qt::NoScrollPhase, false);
    // Only what comes from outside is passed up from the canvas.
    QSpontaneKeyEvent::setSpontaneous(&event);
    qApp->notify(canvas, &event);
}

inline void showWindow(AvarForm& form)
{
    form.show();
    QVERIFY(QTest::qWaitForWindowExposed(&form));
}
