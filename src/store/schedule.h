#pragma once

#include "record/record.h"
#include "store/scheduleitem.h"

#include <QByteArray>
#include <QDate>
#include <QDateTime>
#include <QDir>
#include <QGraphicsScene>
#include <QHash>
#include <QSize>
#include <QWidget>

#include <memory>
#include <utility>

class KdecLoadDlg;
class QAction;
class QGraphicsSceneMouseEvent;
class RecordingLoad;
class Ui_schedule;
class mapStruct;

/// What a recording directory holds, as a chart with a band for each channel or as a table, and the loading
/// of what the user chooses from it. Segments are known by their index in the mapStruct.
class schedule : public QWidget, public ScheduleData {
    Q_OBJECT
public:
    /// `map` must outlive the chart.
    schedule(QWidget* parent, mapStruct* map);
    ~schedule() override;

    /// Shows the chart or the table of the index, which covers the days from `first` to `last` and `count`
    /// channels of `directory`.
    void showSchedule(QDate first, QDate last, QByteArray channels, int count, QDir directory);
    void showTable(QDate first, QDate last, QByteArray channels, int count, QDir directory);
    /// Rebuild the view. 1 without any effect while SLEEP is set, else 0.
    int refreshSch(QDate first, QDate last, QByteArray channels, int count, QDir directory);
    int refreshTab(QDate first, QDate last, QByteArray channels, int count, QDir directory);

    /// Channel of band `i`, from 0; -1 when there is no such band.
    int getChbyInd(int i) const;
    void clearSelection();

    bool eventFilter(QObject* watched, QEvent* event) override;

public slots:
    /// Loads the chosen segments one after another, taking every `kdec`-th sample.
    void load(int kdec);
    void on_pushButtonLoad_clicked();
    void on_pBtnLoadDec_clicked();
    void on_stopBtn_clicked();
    /// Chooses all recordings of the index and loads them with the rounded factor.
    void updRecords(double kdec);
    /// Ends a running load before the next record.
    void stopLoading();

    /// Chooses as a press on the segment does; -1 clears the choice.
    void tableWidgetClicked(int row);
    /// The view has been scrolled: tells the dates in sight.
    void val(int position);
    void setNewSize(QSize size);
    /// Asks how much of the segment under the context menu is to be loaded.
    void SetIntervalForRec();

signals:
    void TakeRec(Record* rec);
    /// Record, kind of source, directory, and a format, which a recording does not have.
    void NewRecLoaded(Record* rec, int type, QString directory, QString format);
    void TableIsShown(bool shown);
    void AllRecsAdded();
    /// What there is to tell about the choice or the load.
    void NewInfo(QString text);

protected:
    void wheelEvent(QWheelEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    using Interval = std::pair<QDateTime, QDateTime>;

    void takeIndex(const QDate& first, const QDate& last, int count, const QDir& directory);
    void buildTexts();
    void fillRow(int row);
    void colourRow(int row);
    QString kindText(char kind) const;
    QString toolTipAt(const chart::Place& place) const;
    void showInfo(const QString& text);
    void retranslate();

    bool canBeChosen(int segment) const;
    void choose(int segment, bool add);
    void chooseAll();
    void chooseArea(const QRect& area, bool add);
    /// Brings marks, rows and buttons into line with `selected`; `touched` are the rows to colour.
    void selectionChanged(const QList<int>& touched);
    Interval intervalOf(int segment) const;

    bool sceneEvent(QEvent* event);
    void hover(QGraphicsSceneMouseEvent* event);
    void press(QGraphicsSceneMouseEvent* event);
    void openMenu(const QPoint& where, int segment, const QDateTime& time);
    chart::Place placeAt(const QPointF& point) const;

    void loadChosen(int kdec);
    bool loadSegment(RecordingLoad* loader, int segment, int kdec);
    void setLoading(bool loading);
    bool tellShortDay(const QString& text);

    std::unique_ptr<Ui_schedule> ui;
    mapStruct* m_map;
    std::unique_ptr<KdecLoadDlg> m_kdecDialog;
    QGraphicsScene m_scene;
    QAction* m_intervalAction;
    QDir m_directory;
    QHash<int, Interval> m_intervals; // where less than a segment is chosen
    int m_menuSegment = -1;
    QDateTime m_menuTime;
    QRect m_band; // of the rubber band, pixels
    Record m_record; // being loaded
    bool m_stopped = false;
};
