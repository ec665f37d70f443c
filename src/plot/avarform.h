#pragma once

#include "plot/plotform.h"
#include "stats/incremental.h"
#include "stats/statistic.h"

#include <QDateTime>
#include <QList>
#include <QVector>
#include <qwt_samples.h>

#include <array>
#include <vector>

/// A graph of ready arrays: stability against averaging time, spectra, reduced, hour and day series. It
/// copies what it is given and keeps every curve as computed and divided by the square root of 2.
class AvarForm : public PlotForm {
    Q_OBJECT
public:
    /// `kind` is the plotKind of the window.
    AvarForm(int* number, QWidget* parent, int kind);

    /// Channel of each curve, in order of addData.
    QList<unsigned short> channels;
    /// The statistic shown, by avarTypeOf.
    unsigned char avarType = 1;
    /// Bounds of the last curve.
    double yMin = 0.0;
    double yMax = 0.0;
    /// How many curves are shown.
    int visibleCount = 0;
    QAction* sqrt2Action = nullptr;

    /// Makes this a stability graph: both axes logarithmic, with their titles.
    void setStability(Statistic statistic);
    /// Makes this a graph of spectra, of the frequency or else of the phase: the bottom axis logarithmic.
    void setSpectrum(bool ofFrequency);
    /// Bottom axis and all Y axes by decades.
    void setLogLog();

    /// Copies a curve of `n` points into the next slot and shows it. n < 1 is ignored, but from channel 256
    /// on makes an empty curve. With the start and stop of the record a stability graph gets error bars.
    void addData(unsigned short channel, long n, double* x, double* y);
    void addData(unsigned short channel, long n, double* x, double* y, unsigned short axis, QDateTime start,
        QDateTime stop);

    void setCurveTitle(int index, const QString& title) override;

public slots:
    /// Brings the table of values up to date with what is shown.
    void showAVAR(QwtPlotItem* item, bool on);
    void setSqrt2();
    void giveforRec(int index, double x1, double x2);
    /// Replaces the curve of a channel by `count` new values `y` at the averaging times `tau` (s), with bars
    /// of a tenth to either side. The values count by sample; `tau0`, the sampling interval in s, makes them
    /// values by second. Those without a magnitude are left out.
    void UpdateDynamicCurves(
        unsigned short channel, int count, const double* y, const double* tau, double tau0);
    /// Shows the first `count` running values of a record, at the averaging times `tau` (s), if they are of
    /// the statistic shown.
    void UpdDynValues(int count, varInf info, const double* tau);

signals:
    void forRec(quint16 channel, double x1, double x2);

protected:
    void retranslate() override;
    void leaveTextBox() override;
    ExportRequest exportRequest() const override;

private:
    static constexpr double sqrt2 = 1.4142135623730951;

    struct Data {
        std::vector<double> xData;
        std::vector<double> yData;
        std::vector<double> ySqrt2Data;
        QDateTime start;
        QDateTime stop;
    };

    bool takeSlot(unsigned short channel, long n, const double* x, const double* y);
    void fill(Data& data, long n, const double* x, const double* y);
    void addBars(const Data& data);
    void finishSlot(unsigned short channel, unsigned short axis);
    void useForm(int index);
    void takeLive(int index, int count, const double* y, const double* tau, double tau0);
    void showTable(int index, bool live);
    int shownCurve() const;
    QString recordTitle(int index) const;

    std::array<Data, curveLimit> m_data;
    QVector<QVector<QwtIntervalSample>> m_bars;
    QVector<QVector<QwtIntervalSample>> m_barsSqrt2;
};
