#pragma once

#include <QColor>
#include <QDateTime>
#include <QList>
#include <QString>
#include <QVector>
#include <QWidget>

#include <memory>
#include <vector>

class QComboBox;
class QLineEdit;
class QwtPlotCurve;
class Ui_GrafOptions;

/// How one curve of a graph is shown.
struct CurveOptions {
    int lineWidth = 0; ///< pixels less 1: the index in the list of widths
    int markerSize = 6; ///< pixels, from 3 on
    int markerStyle = 0; ///< a QwtSymbol::Style
    bool showLine = true;
    bool showMarker = false;
    bool showAverage = false;
    bool showTrend = false;
    bool subtractAverage = false;
    bool showAdev = false;
    QColor color = Qt::black;
    QString title;
    bool applied = false; ///< the user has applied the panel to this curve
};

/// A Y axis that the panel can limit, and its range.
struct AxisLimits {
    QString name;
    double low = 0.0;
    double high = 1.0;
};

/// The properties panel of a graph window: look of each curve, grid, and limits of the axes. It is shown, not
/// run: the window hears from it by signals.
class GrafOptions : public QWidget {
    Q_OBJECT
public:
    explicit GrafOptions(int curveCount, QWidget* parent = nullptr);
    ~GrafOptions() override;

    /// By curve number.
    std::vector<CurveOptions> curves;
    /// The curve being edited, -1 for none.
    int selectedCurve = -1;
    bool showGrid = true;
    /// Date bounds of the graph, and what the user made of them.
    QDateTime start, stop;

    /// Fills the panel from `count` curves and shows it with the curve `selected` chosen.
    void myShow(QwtPlotCurve** list, int count, int selected);
    /// The same with the Y axes in use, their numbers and ranges, of which the one at `axisEntry` is chosen.
    void myShow_new(QwtPlotCurve** list, int count, int selected, QList<unsigned short>* axisNumbers,
        const QVector<AxisLimits>& limits, int axisEntry);
    /// Puts everything back to the start.
    void Clear();
    void setdt(QDateTime from, QDateTime to);
    /// Stores those of the four limits that are valid and returns how many they are. A number that cannot be
    /// read, and a range without extent, are shown in red.
    int checkAllLim();

    /// Takes line, marker, colour and title from the curve as it is.
    void takeLook(int index, const QwtPlotCurve& curve);
    /// What this kind of graph can do: time limits on X, mean values, the Allan deviation between markers.
    void setPossible(bool time, bool means, bool adev);
    /// Whether the user has changed the date bounds.
    bool timeGiven() const { return m_timeGiven; }
    /// The ranges of the same axes, after they have changed.
    void setLimits(const QVector<AxisLimits>& limits);
    /// The Y axis chosen, -1 when there is none.
    int chosenAxis() const;

public slots:
    void on_selLinecBox_currentIndexChanged(int index);
    void on_ApplyBtn_clicked();
    void on_colorBtn_clicked();
    void on_OkBtn_clicked();
    void on_CancelBtn_clicked();
    void on_delBtn_clicked();
    void on_lineChkBox_clicked();
    void on_axNames_comboBox_activated(int index);
    void on_pushButton_clicked();
    void on_dateTimeEdit_editingFinished();
    void on_dateTimeEdit_2_editingFinished();
    void on_highLim_LE_editingFinished();
    void on_lowLim_LE_editingFinished();
    void on_AVarChkBox_clicked();

signals:
    void applyClick();
    /// `values` tells whether the Y limits are given; invalid times leave X alone.
    void applyZoom(int axis, double low, double high, QDateTime from, QDateTime to, bool values);
    void restore1();
    /// The user wants the curve off the graph.
    void removeCurve(int index);

protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    bool known(int index) const { return index >= 0 && index < int(curves.size()); }
    void fillLists();
    void fillCurves(QwtPlotCurve** list, int count, int selected);
    void present();
    void loadCurve();
    void storeCurve();
    void showColor();
    void enableByChecks();
    void showLimits();
    bool readInto(QLineEdit* edit, double* limit);

    std::unique_ptr<Ui_GrafOptions> ui;
    std::vector<CurveOptions> m_before; ///< to be put back when the panel is cancelled
    QList<unsigned short> m_axisNumbers;
    QVector<AxisLimits> m_limits;
    bool m_timePossible = true;
    bool m_meansPossible = true;
    bool m_adevPossible = true;
    bool m_timeGiven = false;
    bool m_valuesGiven = false;
};
