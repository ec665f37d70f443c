#pragma once

#include "plot/core/exporttable.h"

#include <QDateTime>
#include <QPen>
#include <QPoint>
#include <QString>
#include <QWidget>

#include <array>
#include <functional>
#include <map>
#include <memory>

class MultiAxisPlot;
class PlotBoxes;
class QAction;
class QActionGroup;
class QLabel;
class QMenu;
class QMenuBar;
class QPainter;
class QwtPlotCurve;
class QwtPlotGrid;
class QwtPlotIntervalCurve;
class QwtPlotItem;
class QwtPlotMarker;
class QwtTextLabel;

/// The base graph window: one plot with up to 32 curves, their error bars, averages and trends, markers, text
/// boxes on the canvas, a legend with check boxes, and the commands that save, print and export.
class PlotForm : public QWidget {
    Q_OBJECT
public:
    static constexpr int curveLimit = 32;

    /// `number`, where the caller keeps the number of this window, may be null; it is read while the window
    /// lives.
    explicit PlotForm(int* number, QWidget* parent = nullptr);
    ~PlotForm() override;

    /// Slots in use.
    int curveCount = 0;
    /// Y axes that the axis menu lists.
    int axisCount = 4;
    /// The axis that markers and zoom act on; set through setCurrentAxis.
    unsigned short currentAxis = 0;
    /// X counts hours from the start, or MJD days; seconds or tau when both are false.
    bool isHourPlot = false;
    bool isDayPlot = false;
    /// 1: the bottom axis shows dates and a marker reads as a date.
    int xAxisKind = 0;
    /// -1 none, 0 phase, 1 frequency, 2 spectrum, 3 stability; from 2 on there are no mean values.
    int plotKind = -1;
    /// The instant at X = 0.
    QDateTime startTime;
    /// Sampling interval of the data, s.
    double interval = 1.0;

    MultiAxisPlot* plot() const { return m_plot; }
    QMenu* processMenu() const { return m_processMenu; }
    QwtPlotCurve* curve(int index) const;
    QwtPlotIntervalCurve* bars(int index) const;
    bool curveVisible(int index) const;
    QwtPlotCurve* averageCurve(int index) const;
    QwtPlotCurve* trendCurve(int index) const;
    /// Average in columns 0 to 9 and trend in columns 11 to 20, blank where not computed.
    QString curveText(int index) const;
    /// A title of the user's: shown as it stands, never as markup.
    virtual void setCurveTitle(int index, const QString& title);

    void setStatusText(const QString& text);
    QString statusText() const { return m_status; }

    /// Texts that follow a change of language are given as functions, which are called at once and again
    /// then.
    using Text = std::function<QString()>;
    void setTitleSource(Text text);
    void setAxisTitleSource(int axis, Text text);
    void setPlotTitle(const QString& title);

    void setCurrentAxis(int axis);
    /// Enables an axis that a curve uses and gives it an entry in the axis menu.
    void listAxis(int axis);

    /// Name of the quantity on an axis: axes 0 to 3 phase and its companions, 4 to 7 frequency; 8 to 11 by
    /// the kind of the graph. Empty for other numbers.
    QString GetAxisName(int axis) const;

    /// Writes the picture; the suffix (pdf, svg, bmp, png, tif, tiff, jpg, jpeg) tells the format. On failure
    /// returns false and tells why.
    bool saveImageTo(const QString& file, QString* error = nullptr);
    /// Writes the table of what is shown. False when there is no curve or the file cannot be written.
    bool exportASCIITo(const QString& file);

public slots:
    void showCurve(QwtPlotItem* item, bool on);
    void showTrend(int index);
    void showAver(int index);
    void setMarkerMode();
    void setZoomMode();
    void saveImage();
    void printImage();
    virtual void exportASCII();
    void SetAxisNum(int count);
    void CurAxisChenged();
    void showAxisMenu();
    /// Forgets all zooming and lets every axis follow its data.
    void initZoomer();
    /// The same with a fixed range of the bottom and the current axis.
    void initZoomer(double xMin, double xMax, double yMin, double yMax);

signals:
    void AVARTAB_UPD();
    void forRecByIND(int index, double x1, double x2);
    void SetTmpLabel(QwtTextLabel* label);
    void SetTmpLabel1(QwtTextLabel* label);
    void IsClosing(QObject* window);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

    virtual void retranslate();
    virtual ExportRequest exportRequest() const;
    /// Puts a curve of a slot and its bars on an axis.
    void attachCurve(int index, unsigned short axis);
    void replot();
    PlotBoxes* boxes() const { return m_boxes; }
    bool windowNumberIs(int value) const { return m_number && *m_number == value; }

private:
    /// The legend takes at most this share of the height of the window, and scrolls beyond.
    static constexpr double legendShare = 0.3;

    struct Slot;
    struct Look;
    enum class ImageFormat { None, Pdf, Svg, Bmp, Png, Tiff, Jpeg };

    void buildPlot();
    void buildMenus();
    void buildMarkers();
    QAction* addCommand(QMenu* menu, const char* icon, void (PlotForm::*slot)());
    void syncLegend();
    void leaveLegend(QwtPlotItem& item);
    void pictureLegend();
    void screenLegend();
    bool known(int index) const { return index >= 0 && index < curveCount; }
    void putLine(int index, std::unique_ptr<QwtPlotCurve>& line, double y0, double y1, long points,
        Qt::PenStyle style);
    void colorAxes();
    void elideStatus();
    QVector<QPolygonF> visibleLines() const;
    QVector<QPolygonF> markerLabels() const;

    bool canvasValue(const QPoint& pos, QPointF* value) const;
    QString markerTime(double x) const;
    QString differenceText(double dx, double dy) const;
    void clearMarkers();
    void showMeans(double x1, double x2);

    static ImageFormat formatOf(const QString& suffix);
    Look printLook();
    void restoreLook(const Look& look);
    QSize pictureSize() const;
    void render(QPainter* painter, const QRectF& rect);
    QByteArray vectorImage(ImageFormat format);
    QByteArray svgImage();
    QByteArray pdfImage();
    QByteArray bitmapImage(ImageFormat format);

    int* m_number;
    QMenuBar* m_menuBar = nullptr;
    QLabel* m_statusLabel = nullptr;
    MultiAxisPlot* m_plot = nullptr;
    PlotBoxes* m_boxes = nullptr;
    QString m_status;

    QMenu* m_optionsMenu = nullptr;
    QMenu* m_toolsMenu = nullptr;
    QMenu* m_processMenu = nullptr;
    QMenu* m_axisMenu = nullptr;
    QActionGroup* m_axisGroup = nullptr;
    QAction* m_markerAction = nullptr;
    QAction* m_zoomAction = nullptr;
    QAction* m_boundsAction = nullptr;
    QList<std::pair<QAction*, const char*>> m_actionTexts;
    QList<int> m_usedAxes;

    std::array<std::unique_ptr<Slot>, curveLimit> m_slots;
    std::unique_ptr<QwtPlotGrid> m_grid;
    std::unique_ptr<QwtPlotMarker> m_x1, m_y1, m_x2, m_y2;
    QPoint m_pressPos;
    QPointF m_pressValue;
    bool m_pressed = false;

    Text m_title;
    std::map<int, Text> m_axisTitles;
};
