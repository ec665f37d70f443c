#pragma once

#include "plot/seriesgraph.h"
#include "plot/stabilitygraph.h"
#include "record/record.h"
#include "stats/incremental.h"
#include "stats/statistic.h"
#include "table/core/crosspair.h"
#include "table/core/difference.h"
#include "table/core/merge.h"
#include "table/core/outliers.h"
#include "table/core/processedrecords.h"
#include "table/core/stability.h"

#include <QDateTime>
#include <QHash>
#include <QList>
#include <QMessageBox>
#include <QStringList>
#include <QWidget>

#include <functional>
#include <memory>
#include <optional>

class AvarForm;
class PhaseForm;
class QAction;
class QDir;
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

    /// Wide enough for all commands to show without scrolling.
    QSize sizeHint() const override;

    /// The records as loaded, one a row.
    Record load_record[maxRecords];
    /// Rows in use, and the index of the next free row.
    int free_row = 0;
    /// Where generateNewID() keeps the last identifier it gave, so that it survives the session; may be null.
    quint8* lastUsedRecID = nullptr;
    /// Cross processing pairs the samples of records with the same start by their order.
    bool simultaneousMoments = false;
    /// The measurement interval of the frequency graph, s.
    double frInterval = 1.0;
    /// The numbers of the newest graph windows of phase and of frequency. 0 when that window was closed.
    int sampCount = 0;
    int freqCount = 0;

    /// Takes what the settings hold for the table: the last identifier given and the last directory saved to.
    /// Both stay the owner's and are kept up to date; they may be null.
    void setProp(quint8* recID, QString* savePath);
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
    /// Queues the work on the statistic `m_type` of a processed record, for avarAll; what is shown goes to
    /// avarRes when all of it has run. `plain` tells that this one is shown.
    void avar_calc(int rec, TauKernel kernel, bool plain);
    void avar_calc(int rec, ScaleKernel kernel);
    /// Computes the statistic `m_type` of the processed records 0 and 1 together, on the samples a0 to a1 and
    /// b0 to b1 that stand at the same time, into the results from number `rec` on: into avarAll, and when it
    /// is the one shown into avarRes as well. Gives the number of results, 0 when there are none.
    int cross_calc(int rec, CrossKernel kernel, int a0, int b0, int a1, int b1, bool shown);

signals:
    void GiveMeRec(Record* rec);
    /// The table had no place for the record.
    void TableIsFull(Record* rec);
    /// The number of rows in use changed.
    void rowsChanged();
    /// The user dropped files on the table.
    void filesDropped(QStringList files);
    /// A graph or result table was made; the main window gives it a frame and shows it.
    void windowMade(QWidget* window);
    /// New samples of a live record, with the time (s) and the value of the sample before them: RecID, count,
    /// t, x, t and x before. The arrays are valid during the call only.
    void PlotsTakeNewDataFromManager(quint16, int, const double*, const double*, double, double);
    /// New running values of a live record: their count, the values, and their averaging times (s), which are
    /// valid during the call only.
    void UpdAvarPlots(int, varInf, const double*);
    /// A record is to be written in the recording format: the record, the directory, the number of the file
    /// names. Sent with SLEEP set. The receiver calls recSaved() before it returns.
    void SaveRecs(Record*, QDir*, quint8);
    /// A processed record is to be written as text. It belongs to the table.
    void SaveToASCII(Record*);
    /// A recording is to be read anew: its directory, the start of the record, its channel, and the interval
    /// between its samples, s. Sent with SLEEP set. What the receiver gives to addRecord() before it returns
    /// takes the place of the row, no further row is made.
    void updRecords(QString, QDateTime, int, double);
    /// Sent with true before records are read anew and with false behind that.
    void hideWindows_forUpdRec(bool);

public slots:
    /// Takes a deep copy of a record from any source into the next free row, and empties `rec` whatever
    /// happens.
    void addRecord(Record* rec);
    void ChangeDataType(int index);
    void EditTimeRec();
    /// Writes the checked rows, or the row with the cursor, in the recording format; the action of the
    /// context menu the row with the cursor only.
    void SaveRecsToFile();
    /// Hands over the processed record of the row with the cursor to be saved as text.
    void SaveRecsToASCIIFile();
    /// The answer to SaveRecs(): what went wrong, for the user; empty when the record is written.
    void recSaved(const QString& fault);
    /// For the receivers of SaveRecs() and updRecords(), now and then: shows the share of their work that is
    /// done. True when the user wants it to end.
    bool stopAsked(double share);
    /// Reads on the checked rows that come from a directory.
    void on_updRecsBtn_clicked();
    /// Adds the stretch of a checked row between two times, in seconds from its first sample, as a record.
    void giveForRec(quint16 recID, double from, double to);
    void EditRecTableDateTime();
    void PlotIsClosed(QObject* window);
    void closeAllFigs();
    void minimizeAllFigs();
    void restoreAllFigs();

    void on_addRecBtn_clicked();
    void on_delRecBtn_clicked();
    void on_diffRecBtn_clicked();
    void on_mergeRecBtn_clicked();
    void popup_mergeRec_ItemSelected(QAction* item);
    void on_delAllRecsBtn_clicked();
    void on_MoveRecordUp_clicked();
    void on_MoveRecordDown_clicked();
    void on_RotateRecord_Btn_clicked();
    void on_SelectAllRecords_Btn_clicked();
    void on_UnselectAllRecords_Btn_clicked();
    void on_recTable_itemChanged(QTableWidgetItem* item);
    void on_processBtn_clicked();
    void on_stopBtn_clicked();
    void on_sampGrBtn_clicked();
    void on_freqGrBtn_clicked();
    /// Takes the step of the frequency graph from an item of its menu.
    void popup_slot(QAction* item);
    void on_avarGrBtn_clicked();
    void on_avarTabBtn_clicked();
    void on_trendTabBtn_clicked();
    void popup_slot_varplot(QAction* item);
    void popup_slot_vartab(QAction* item);
    void on_spectrGrBtn_clicked();
    void on_spectrTabBtn_clicked();
    void popup_slot_spectr(QAction* item);
    void popup_slot_spectrtab(QAction* item);

protected:
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    struct RecordSaving;
    struct RowUpdate;

    // rows
    void buildTable();
    void buildActions();
    void buildKeys();
    void updateEmptyState();
    void fitCommands();
    void measureRowButtons();
    void fitRowButtons();
    void showTexts();
    int selectedRow() const;
    bool isChecked(int row) const;
    void setChecked(int row, bool on);
    QVector<int> checkedRows() const;
    OutlierLimits limitsOf(int row) const;
    void limitEdited(QTableWidgetItem* item);
    void takeRow(int from, int to);
    void clearRow(int row);
    void removeRows(const QVector<int>& unwanted);
    void showKinds(int row);
    void cleanRepeats(Record& slot);

    // saving and reading on
    int currentRow() const;
    void tellSaving(QMessageBox::Icon icon, const QString& text);
    bool placeFor(const Record& rec, RecordSaving* saving);
    bool chooseDirectory(RecordSaving* saving);
    void save(Record* rec, RecordSaving* saving, double done, double share);
    void tellSaved(const RecordSaving& saving);
    QVector<int> rowsToUpdate() const;
    QString updateRow(int row);
    bool takeUpdate(Record* rec);

    // new rows of others
    void combineChecked(const char* name, const std::function<bool(Record&, Record&, Record&)>& make);
    bool refuse(const QString& text);
    bool acceptDifference(const DifferenceResult& result);
    bool acceptMerge(const MergeResult& result);
    MergeMode mergeMode() const;
    bool askToShiftPhase();
    void tellTableFull();
    void tellCountsDiffer();

    // processing
    ProcessedRecords& results() { return *this; }
    bool runCommand(const char* name, const std::function<void()>& body);
    bool run(const Tasks& tasks, double share);
    bool showProgress(double share);
    void setCommandsEnabled(bool on);
    void process();
    double carrier();
    void foldLiveTails();
    QStringList copyCheckedRows();
    void adjustBoxes();
    void checkDriftRemoval();
    void checkSpectra();
    void computeRecords();
    Tasks recordTasks(int i);
    void computeAlone(int i, double share);
    void queueStatistic(int rec, const StabilityKernel& kernel);
    bool checkCross();
    CrossMoments moments() const;
    bool crossFits(CrossStatus status);
    void computeCross();
    void computePair();
    void computeHat();
    void takeCrossRows(const QVector<CrossRow>& names, const QDateTime& start, const QDateTime& stop);
    int takeCrossValues(int rec, const std::vector<std::vector<double>>& values, bool shown);

    // phase and frequency over time
    void buildFrequencyMenu();
    void offerFrequencySteps();
    std::optional<SeriesKind> seriesKind() const;
    void showWhole(Record* shown, bool frequency);
    void showReduced(SeriesKind kind, bool frequency);
    GraphSeries reducedSeries(int i, SeriesKind kind, bool frequency);
    int checkedRowOf(quint16 recID) const;
    double firstTimeOf(quint16 recID);

    // results
    void showResultState();
    StabilityNotes notes() const;
    void fillStatisticMenus();
    void buildSpectrumMenus();
    void showSpectrumTexts();
    void chooseStatistic(const QAction* item);
    TableForm* newTable(const std::function<QString()>& title);
    void adopt(QWidget* window);
    void numberWindow(const QObject* window, int* counter);
    bool followsLive() const;
    bool standsStill() const;
    void adoptGraph(std::unique_ptr<AvarForm> graph);
    QList<QWidget*> figures() const;

    std::unique_ptr<Ui_SelRecTable> ui;
    QMenu* m_graphMenu = nullptr;
    QMenu* m_tableMenu = nullptr;
    QMenu* m_mergeMenu = nullptr;
    QMenu* m_frequencyMenu = nullptr;
    QMenu* m_spectrumGraphMenu = nullptr;
    QMenu* m_spectrumTableMenu = nullptr;
    QLabel* m_emptyHint = nullptr;
    QAction* m_saveAction = nullptr; // of the context menu
    int m_rowButtonsWidth = 0; // pixels that the buttons above the rows take with their texts
    quint8 m_lastID = 0;
    QString* openSavePath = nullptr;
    Statistic m_type = Statistic::Adev; // being computed
    PhaseSeries m_series; // of the record being computed
    CrossSeries m_cross; // of the records being computed together
    ProgressScope* m_progress = nullptr; // while a processing runs
    Tasks m_tasks; // queued by avar_calc()
    double m_progressDone = 0.0; // share of the work behind the step at hand
    double m_progressStep = 0.0; // share of the step at hand
    bool m_stopAsked = false;
    QString m_saveFault; // of the record being saved
    RowUpdate* m_update = nullptr; // while a row is read anew
    QList<PhaseForm*> m_phases;
    QList<AvarForm*> m_graphs;
    QList<TableForm*> m_tables;

    /// Where the numbers of a kind of windows are counted, and the number of one of them.
    struct WindowNumber {
        int* counter = nullptr;
        int number = 0;
    };
    QHash<const QObject*, WindowNumber> m_numbers;
};
