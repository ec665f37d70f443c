#pragma once

#include "plot/core/exporttable.h"
#include "plot/core/markertexts.h"
#include "plot/core/plotpoints.h"

#include <QDateTime>
#include <QElapsedTimer>
#include <QPen>
#include <QPoint>
#include <QPointer>
#include <QString>
#include <QWidget>
#include <qwt_interval.h>

#include <array>
#include <functional>
#include <map>
#include <memory>

class GrafOptions;
class InsPlotComment;
class MultiAxisPlot;
class PlotBoxes;
class PlotComments;
class PlotZoomDT;
class QAction;
class QActionGroup;
class QImage;
class QLabel;
class QMenu;
class QMenuBar;
class QPainter;
class QPrinter;
class QTimer;
class QwtPlotCurve;
class QwtPlotGrid;
class QwtPlotIntervalCurve;
class QwtPlotItem;
class QwtPlotMarker;
class QwtTextLabel;
struct AxisLimits;
struct CurveLine;
struct TimeAxis;

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

    /// Boundaries marked so far: 1 while the second one is awaited.
    int clickCount = 0;
    /// 2 when both boundaries of a stretch are set.
    int selectionState = 0;
    /// The boundaries, in units of X, in the order of the clicks.
    double selectionX1 = 0.0;
    double selectionX2 = 0.0;
    /// The first boundary is set and the strip follows the mouse.
    bool selectionDragging = false;

    /// The properties panel of this window.
    GrafOptions* options = nullptr;

    MultiAxisPlot* plot() const { return m_plot; }
    PlotZoomDT* zoomDialog() const { return m_zoomDialog; }
    InsPlotComment* commentDialog() const { return m_commentDialog; }
    /// The user's comments on the canvas.
    QList<QwtTextLabel*> comments() const;
    /// Bounds of the data for both dialogs that limit X by time.
    void setTimeBounds(const QDateTime& from, const QDateTime& to);
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
    /// What the status line says of the point next to the mouse; it gives way to any other text there.
    QString hoverText() const { return m_hover; }

    /// Whether the user asked for the Allan deviation between the markers of this curve.
    virtual bool showsAdev(int index) const;

    /// Texts that follow a change of language are given as functions, which are called at once and again
    /// then.
    using Text = std::function<QString()>;
    void setTitleSource(Text text);
    void setAxisTitleSource(int axis, Text text);
    /// Until the status line says something else.
    void setStatusSource(Text text);
    void setPlotTitle(const QString& title);
    /// A line that pictures and prints carry below the title, so that they explain themselves.
    void setPictureNote(Text text) { m_pictureNote = std::move(text); }

    void setCurrentAxis(int axis);
    /// Enables an axis that a curve uses and gives it an entry in the axis menu.
    void listAxis(int axis);
    /// Forgets which axes curves use, and disables all of them.
    void clearAxes();
    /// Puts a curve of a slot and its bars on an axis.
    void attachCurve(int index, unsigned short axis);
    /// Takes a curve with its bars, average and trend off the plot.
    void detachCurve(int index);
    /// Takes the markers off with what they tell, when the curves below them change. Boundaries stay: a
    /// stretch may begin and end on different days.
    void dropMarkers();
    /// Takes the mean off a curve again whose samples were given anew, when the user wants that.
    void renewSubtraction(int index);
    void replot();

    /// Name of the quantity on an axis: axes 0 to 3 phase and its companions, 4 to 7 frequency; 8 to 11 by
    /// the kind of the graph. Empty for other numbers.
    QString GetAxisName(int axis) const;

    /// Writes the picture; the suffix (pdf, svg, bmp, png, tif, tiff, jpg, jpeg) tells the format. On failure
    /// returns false and tells why.
    bool saveImageTo(const QString& file, QString* error = nullptr);
    /// Writes the table of what is shown. False when there is no curve or the file cannot be written; only
    /// one that could be opened leaves an error.
    bool exportASCIITo(const QString& file, QString* error = nullptr);

public slots:
    void showCurve(QwtPlotItem* item, bool on);
    void showTrend(int index);
    void showAver(int index);
    /// Applies the properties panel to the curve chosen there, or to all curves it was ever applied to.
    void takeApply();
    void takeApply2();
    void openProperty();
    void showZoomDialog();
    void setDTzoom();
    void restoreDTzoom();
    /// Without `values`, or on no Y axis, the numbers are left aside; so are times that are not valid.
    void setDTzoom_new(int axis, double low, double high, QDateTime from, QDateTime to, bool values);
    void restoreDTzoom_new();
    void showCommentDialog();
    /// Adds a comment whose lines are joined by "<br />".
    void setPlotComment(QString text);
    void CommentLabelContextMenuTrigg();
    void CommentLabelContextMenuTrigg1();
    void setMarkerMode();
    void setZoomMode();
    void setOtmetMode();
    /// Sends forRecByIND for every visible curve once both boundaries are set.
    void saveNewRec();
    /// The strip between two boundaries, in the values of the bottom and the current axis. The order of the
    /// ends does not matter.
    void setSelectionRect(double xMin, double xMax, double yMin, double yMax);
    void setSelectionXmin(double value);
    void setSelectionXmax(double value);
    void setSelectionYmin(double value);
    void setSelectionYmax(double value);
    void saveImage();
    void printImage();
    void previewPrint();
    /// Puts the picture on the clipboard, as large as in the window.
    void copyImage();
    /// Undoes all zooming of all axes.
    void showWhole();
    /// Undoes the last step of zooming.
    void undoZoom();
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
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

    virtual void retranslate();
    /// What the top right box does when no curve has an average or a trend.
    virtual void leaveTextBox();
    bool hasCurveTexts() const;
    virtual ExportRequest exportRequest() const;
    PlotBoxes* boxes() const { return m_boxes; }
    bool windowNumberIs(int value) const { return m_number && *m_number == value; }

private:
    /// The legend takes at most this share of the height of the window, and scrolls beyond.
    static constexpr double legendShare = 0.3;

    struct Slot;
    struct Look;
    class PictureScope;
    /// An entry of a menu, with its texts before translation.
    struct Command {
        QAction* action;
        const char* text;
        const char* tip;
    };
    enum class ImageFormat { None, Pdf, Svg, Bmp, Png, Tiff, Jpeg };

    void buildPlot();
    void buildMenus();
    void buildMarkers();
    void buildDialogs();
    void buildTools();
    QAction* addCommand(
        QMenu* menu, const char* icon, void (PlotForm::*slot)(), const char* text, const char* tip);
    void syncLegend();
    void leaveLegend(QwtPlotItem& item);
    void pictureLegend();
    void screenLegend();
    bool known(int index) const { return index >= 0 && index < curveCount; }
    void putLine(int index, std::unique_ptr<QwtPlotCurve>& line, const CurveLine& shape, Qt::PenStyle style);
    bool drawTrend(int index);
    bool drawAverage(int index);
    void subtractMean(int index, bool on);
    void applyOptions(int index);
    void showTextBox(bool plainHeads);
    void removeCurve(int index);
    QVector<AxisLimits> axisLimits() const;

    TimeAxis timeAxis() const;
    bool hasTimeAxis() const;
    void offerBounds();
    void zoomTime(int axis, QwtInterval y, const QDateTime& from, const QDateTime& to);
    void restoreWhole(int axis);
    void showCommentMenu(QwtTextLabel* label, const QPoint& pos);

    void colorAxes();
    void placeStatus();
    void elideStatus();
    QVector<QPolygonF> visibleLines() const;
    QVector<QRectF> markerNames() const;

    bool canvasValue(const QPoint& pos, QPointF* value) const;
    MarkerTexts markerTexts() const;
    void clearMarkers();
    void placeMarker(const QPointF& value, QwtPlotMarker& vertical, QwtPlotMarker& horizontal);
    void endMarking(const QPointF& value);
    void showMeans(double x1, double x2);
    void showAdev(double x1, double x2);
    PlotPoints pointsOf(int index) const;

    void buildStrip();
    void clearSelection();
    void leaveSelectionMode();
    void markBoundary(const QPointF& value);
    void dragBoundary(const QPointF& value);
    void drawStrip();
    QwtInterval visibleRange() const;

    void buildNavigation();
    void pan(const QPoint& pos);
    void zoomAbout(const QPoint& pos, double factor, bool vertical);
    void readHover();
    void setHover(const QString& text);

    static ImageFormat formatOf(const QString& suffix);
    Look printLook();
    void restoreLook(const Look& look);
    QSize pictureSize() const;
    void render(QPainter* painter, const QRectF& rect);
    QByteArray vectorImage(ImageFormat format);
    QByteArray svgImage();
    QByteArray pdfImage();
    QByteArray bitmapImage(ImageFormat format);
    QImage picture(double dpi);
    bool paintPage(QPrinter* printer);
    void preparePrinter(QPrinter* printer) const;

    int* m_number;
    QMenuBar* m_menuBar = nullptr;
    QLabel* m_statusLabel = nullptr;
    MultiAxisPlot* m_plot = nullptr;
    PlotBoxes* m_boxes = nullptr;
    QString m_status;
    QString m_hover;

    QMenu* m_optionsMenu = nullptr;
    QMenu* m_toolsMenu = nullptr;
    QMenu* m_processMenu = nullptr;
    QMenu* m_axisMenu = nullptr;
    QActionGroup* m_axisGroup = nullptr;
    QAction* m_markerAction = nullptr;
    QAction* m_zoomAction = nullptr;
    QAction* m_boundsAction = nullptr;
    QAction* m_newRecordAction = nullptr;
    QList<Command> m_commands;
    QList<int> m_usedAxes;

    std::array<std::unique_ptr<Slot>, curveLimit> m_slots;
    std::unique_ptr<QwtPlotGrid> m_grid;
    std::unique_ptr<QwtPlotMarker> m_x1, m_y1, m_x2, m_y2;
    QPoint m_pressPos;
    QPointF m_pressValue;
    bool m_pressed = false;

    std::unique_ptr<QwtPlotIntervalCurve> m_strip;
    QwtInterval m_stripX, m_stripY; ///< in values; the ends in either order
    QTimer* m_hoverTimer = nullptr;
    QPoint m_hoverPos;
    QPoint m_panPos;
    bool m_panning = false;
    bool m_panBegun = false; ///< the pan has made a step of zooming
    QElapsedTimer m_wheelClock; ///< since the last notch

    PlotZoomDT* m_zoomDialog = nullptr;
    InsPlotComment* m_commentDialog = nullptr;
    PlotComments* m_comments = nullptr;
    QMenu* m_commentMenu = nullptr;
    QAction* m_correctAction = nullptr;
    QAction* m_deleteAction = nullptr;
    QAction* m_periodAction = nullptr;
    QPointer<QwtTextLabel> m_menuLabel;
    bool m_plainHeads = false; ///< of the box of averages and trends
    bool m_timeFixed = false; ///< X was limited beside the steps of zooming

    Text m_pictureNote;
    int m_noteHeight = 0; ///< by which the note makes a picture higher, in pixels of the screen
    Text m_title;
    Text m_statusSource;
    std::map<int, Text> m_axisTitles;
};
