#pragma once

#include "record/record.h"
#include "stats/statistic.h"
#include "table/core/processedrecords.h"
#include "table/core/stability.h"

#include <QList>
#include <QWidget>

#include <functional>
#include <memory>

class AvarForm;
class QAction;
class QLabel;
class QMenu;
class ProgressScope;
class QTableWidgetItem;
class TableForm;
class Ui_SelRecTable;

/// The central window: the loaded records as rows of a table, and every command on them.
///
/// The limit of 32 records is fixed. The object holds them inside itself, so it lives on the heap only.
/// Slots are reused by deleteRecord() and a further copy, never reallocated.
class SelRecTable : public QWidget, public ProcessedRecords {
    Q_OBJECT
public:
    explicit SelRecTable(QWidget* parent = nullptr);
    ~SelRecTable() override;

    /// The records as loaded, one a row.
    Record load_record[maxRecords];
    /// Rows in use, and the index of the next free row.
    int free_row = 0;
    /// Where generateNewID() keeps the last identifier it gave, so that it survives the session; may be null.
    quint8* lastUsedRecID = nullptr;

    /// Fills a row from a record; a data type that is not known becomes 0.
    void DisplayRecInfo_atTableRow(int row, Record* rec);
    /// Makes the row `free_row` visible and counts it.
    void addCopiedRecord();
    void MoveRecord_inTable(int from, int to);
    /// The next identifier of a record: 1 to 255, then 1 again. 0 stays the mark of a record without one.
    quint8 generateNewID();
    /// Sets sampStart and sampStop; returns the count of calendar days between them, both included.
    int findStartStop();
    /// Enables or disables the result buttons together.
    void activateBtns(bool on);
    void checkAllRec();
    void uncheckAllRec();

    /// Makes the tau scale of a processed (or, with `fromLoad`, loaded) record of `n` samples; returns its
    /// length.
    int generateTauScale(int step, long n, int rec, bool fromLoad);
    /// Computes the statistic `m_type` of a processed record into avarAll, and with `plain` into avarRes as
    /// well.
    void avar_calc(int rec, TauKernel kernel, bool plain);
    void avar_calc(int rec, ScaleKernel kernel);

signals:
    void GiveMeRec(Record* rec);
    /// The table had no place for the record.
    void TableIsFull(Record* rec);
    /// The number of rows in use changed.
    void rowsChanged();
    /// A graph or result table was made; the main window gives it a frame and shows it.
    void windowMade(QWidget* window);

public slots:
    /// Takes a deep copy of a record from any source into the next free row, and empties `rec` whatever
    /// happens.
    void addRecord(Record* rec);
    void ChangeDataType(int index);
    void EditTimeRec();
    void EditRecTableDateTime();
    void PlotIsClosed(QObject* window);
    void closeAllFigs();
    void minimizeAllFigs();
    void restoreAllFigs();

    void on_addRecBtn_clicked();
    void on_delRecBtn_clicked();
    void on_delAllRecsBtn_clicked();
    void on_MoveRecordUp_clicked();
    void on_MoveRecordDown_clicked();
    void on_RotateRecord_Btn_clicked();
    void on_SelectAllRecords_Btn_clicked();
    void on_UnselectAllRecords_Btn_clicked();
    void on_recTable_itemChanged(QTableWidgetItem* item);
    void on_processBtn_clicked();
    void on_stopBtn_clicked();
    void on_avarGrBtn_clicked();
    void on_avarTabBtn_clicked();
    void on_trendTabBtn_clicked();
    void popup_slot_varplot(QAction* item);
    void popup_slot_vartab(QAction* item);

protected:
    void changeEvent(QEvent* event) override;

private:
    // rows
    void buildTable();
    void buildActions();
    void updateEmptyState();
    void showTexts();
    int selectedRow() const;
    bool isChecked(int row) const;
    void setChecked(int row, bool on);
    void clearRow(int row);
    void removeProcessed(quint16 recID);

    // processing
    ProcessedRecords& results() { return *this; }
    void process();
    void endProcessing(ProcessedRecords& former, bool complete);
    void foldLiveTails();
    void setCommandsEnabled(bool on);
    QStringList copyCheckedRows();
    void checkDriftRemoval();
    void computeAll();
    StabilityOptions stabilityOptions(double interval);
    bool showProgress(double share);

    // results
    void fillStatisticMenus();
    void chooseStatistic(const QAction* item);
    TableForm* newTable(const std::function<QString()>& title);
    void adopt(QWidget* window);
    QList<QWidget*> figures() const;

    std::unique_ptr<Ui_SelRecTable> ui;
    QMenu* m_graphMenu = nullptr;
    QMenu* m_tableMenu = nullptr;
    QLabel* m_emptyHint = nullptr;
    quint8 m_lastID = 0;
    Statistic m_type = Statistic::Adev; // being computed
    PhaseSeries m_series; // of the record being computed
    ProgressScope* m_progress = nullptr; // while a processing runs
    double m_progressDone = 0.0; // share of the work behind the step at hand
    double m_progressStep = 0.0; // share of the step at hand
    bool m_stopAsked = false;
    QList<AvarForm*> m_graphs;
    QList<TableForm*> m_tables;
};
