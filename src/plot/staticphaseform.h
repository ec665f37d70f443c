#pragma once

#include "plot/plotform.h"
#include "record/record.h"

#include <QDate>
#include <QDateTime>
#include <QWidget>

#include <array>
#include <vector>

class QLabel;
class QSlider;
class QVBoxLayout;

/// Phase or frequency records day by day: a graph, and below it a slider that picks the day.
///
/// X is in seconds from 00:00:00 of the first shown day, for all days. The records keep their own times; what
/// raises a time of record i to X is axisOffset(i).
class StaticPhaseForm : public QWidget {
    Q_OBJECT
public:
    static constexpr int curveLimit = PlotForm::curveLimit;

    /// `number` as for PlotForm.
    explicit StaticPhaseForm(int* number, QWidget* parent = nullptr);
    ~StaticPhaseForm() override;

    /// The graph, a child of this window.
    PlotForm* plot;
    /// The records shown, in the order of the curves; plot->curveCount tells how many.
    std::array<Record, curveLimit> records;
    /// Samples of each record on each shown day.
    std::array<std::vector<int>, curveLimit> dayCounts;
    /// Earliest start and latest stop of the records.
    QDateTime shownStart;
    QDateTime shownStop;
    /// Calendar days from shownStart to shownStop, both included.
    int dayCount = 1;
    /// X of shownStart and shownStop.
    double startSecond = 0.0;
    double stopSecond = 0.0;
    /// The day of X = 0.
    QDate firstDate;
    /// Its value is the day shown, from 0 on.
    QSlider* daySlider;
    /// Each day is shown relative to its first value.
    bool subtractFirst = false;
    /// The records hold frequencies.
    bool isFreq = false;

    /// The title of the window, by a function as for PlotForm.
    void setTitleSource(PlotForm::Text text);

    /// Shows `records`: the last day of several, or the only one. `first` for records not shown before.
    void addStaticRecords(bool first);
    /// Does nothing when `stop` lies before `start`.
    void setStartStopDates(QDate& start, QDate& stop);
    /// Makes the bottom axis one of time and gives a curve a copy of `n` points.
    void plotData(int index, double* x, double* y, long n);
    /// Takes all curves off the plot.
    void refresh();

    double axisOffset(int index) const { return m_offsets[size_t(index)]; }
    /// Number of the Y axis of a record: by its kind of data, plus the first axis of the group.
    unsigned short axisOf(int index) const;

public slots:
    void anotherDay(int day);
    /// Passes a stretch of a curve on as forRec, in times of the record.
    void giveForRec(int index, double x1, double x2);

signals:
    void NewRecReady(Record* record);
    /// RecID of a record and a stretch of it, in its own times `t`.
    void forRec(unsigned short id, double from, double to);
    void IsClosing(QObject* window);

protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    virtual void retranslate();

    /// When a record ends; a window that follows live data counts these in.
    virtual QDateTime endOf(Record& record) const { return record.stop; }
    /// Whether a record has a curve on a day.
    virtual bool shows(int index, int day) const;
    /// Puts these curves on the plot and takes the others off.
    void arrangeCurves(const std::vector<int>& present);
    void setSamples(int index, std::vector<double> x, std::vector<double> y);
    /// Finds the span of the records and what lies on which day.
    void measure();
    void setDays(int days);
    /// Shows a day, from 0 to dayCount - 1, without moving the slider.
    void drawDay(int day);
    void showSlider(bool on);
    QVBoxLayout* rows() const { return m_rows; }

    /// First axis of the group of the window, added to the kind of the data.
    int m_axisShift = 0;

private:
    struct Points {
        std::vector<double> x;
        std::vector<double> y;
    };

    double offsetOf(Record& record) const;
    int lastDay() const;
    void buildSlider();
    void setTimeAxis();
    void zoomOtherDay();
    void clearCurve(int index);
    QString dayText(int day) const;

    QVBoxLayout* m_rows;
    QLabel* m_dayLabel;
    PlotForm::Text m_title;
    std::array<Points, curveLimit> m_points;
    std::array<double, curveLimit> m_offsets{};
    std::array<bool, curveLimit> m_wanted; ///< not hidden by the user
    std::vector<int> m_present; ///< curves on the plot
};
