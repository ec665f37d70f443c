#pragma once

#include "plot/core/livesplice.h"
#include "plot/staticphaseform.h"

#include <array>

class QPushButton;

/// Time-series graph that can also follow live records: new samples go on where its records end, and the X
/// axis moves with them. Either it follows, or it shows days; the button switches.
class PhaseForm : public StaticPhaseForm {
    Q_OBJECT
public:
    explicit PhaseForm(int* number, QWidget* parent = nullptr);

    QPushButton* dynBtn;
    /// The graph follows live data.
    bool dynamicMode = false;
    /// Left end of the moving X window, s.
    long dynWindowStart = 0;
    /// Guards an update against another one that comes while it runs.
    bool busy = false;
    /// Number of live records.
    int dynRecordCount = 0;
    /// What raises a time of a live record to X, s.
    std::array<double, curveLimit> dynOffset{};
    /// Least averaging interval of the records, s.
    double minInterval = 1.0;

    void addRecords(Record* source, int count);
    /// Takes copies of at most 32 records and shows them. `axisShift` is the first Y axis of the group to
    /// use, `interval` the sampling interval of the data, s.
    void addRecords(Record* source, int count, int axisShift, double interval);
    /// Follows the live ones among the records; without any nothing changes.
    void addDynamicRecords();

public slots:
    void onDynBtn();
    /// Takes new samples of the live record with this RecID: `baseT` and `baseX` are the sample before them.
    void UpdateDynamicCurves(
        unsigned short channel, int count, const double* t, const double* x, double baseT, double baseX);

protected:
    void retranslate() override;
    QDateTime endOf(Record& record) const override;
    bool shows(int index, int day) const override;

private:
    /// The record holds frequencies, whose stream sends phases.
    bool makesFrequency(int index) const;
    void setFollowing(bool on);
    void startFollowing();
    void stopFollowing();
    void takeBatch(int index, const LiveBlock& block);
    void showLive();
    void showTail(int index);
    void openWindow();
    void startWindow();
    void moveWindow();
    void scaleWindow();
    double liveEnd(int index) const;
    double newestSecond() const;
    void addNewDays();

    std::array<PhaseBefore, curveLimit> m_before;
};
