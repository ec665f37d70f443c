#pragma once

#include "load/core/readformat.h"
#include "load/core/recentrecs.h"

#include <QByteArray>
#include <QDate>
#include <QDateTime>
#include <QDialog>
#include <QDialogButtonBox>
#include <QDir>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <vector>

class AsciiFile;
class PathHistory;
class QAbstractButton;
class QProcess;
class QTableWidgetItem;
class Ui_OpenFileGlobForm;
class WarnDiag;
class addNewFormat_class;
class mapStruct;
class schedule;
struct AsciiRequest;
struct AsciiResult;
struct KnownRecording;
struct OpenGlobForm_winProp;
struct Preview;
struct Record;

/// The one door for data: a menu of sources at the left, a page for each source, and one button that walks
/// the user forward. Every source ends with RecReady().
class OpenFileGlobForm : public QDialog {
    Q_OBJECT
public:
    /// Values of srcMode.
    enum Source : quint8 {
        FolderParameters = 1,
        File = 2,
        Device = 3,
        FolderChart = 4,
        RecentRecords = 5,
        Cggtts = 6,
        SqlServer = 7,
        Twstft = 8,
    };

    explicit OpenFileGlobForm(QWidget* parent = nullptr);
    ~OpenFileGlobForm() override;

    /// Takes the lists of templates, column formats and opened paths. `prop` stays the owner's and gets the
    /// user's changes.
    void setProp(OpenGlobForm_winProp* prop);
    /// Shows the dialog at the file page with this file filled in.
    void openFile(const QString& path);
    /// Shows the dialog at the file page: one file goes to the first tab, several to the list of the second.
    /// A directory goes to the folder page.
    void openFiles(const QStringList& files);
    /// Add a file or directory to those that the path fields offer.
    void add_file_LE_Path(const QString& path);
    void add_Kat_LE_Path(const QString& path);

    /// Row of the guessed type in FileFormat_byDevice; `start` gets the start of the measurement.
    int GetFile_Format(QString fileName, QDateTime& start);
    /// Guesses the type of the file and fills the page by it.
    void AutoFormat(QString fileName);
    /// Hides the pages of all sources.
    void HideFrames();

    /// The column format of the second tab.
    ReadFormat getFormat();
    void setFormat(ReadFormat const& format);
    /// Reads files by columns and sends a record for each data column. The status line tells the outcome.
    void readData_fromFile(ReadFromFilesInfo info);

    /// The chart of recordings, and the index of a directory that it shows.
    schedule* sch = nullptr;
    mapStruct* map = nullptr;
    /// What is indexed: the directory, the first and the last day, and the channels as a mask of two bytes
    /// (bit 0 of byte 0 is channel 1) and their number.
    QDir kat_dir;
    QDate kat_date1, kat_date2;
    QByteArray kat_channels;
    int kat_channelCount = 0;
    /// Set by the owner: told the share done while others wait for SaveRecsP() or updRecords_slot(); false
    /// ends the work.
    std::function<bool(double)> othersProgress;
    /// The current source; it survives hiding.
    quint8 srcMode = File;
    /// The pointer given by myshow().
    Record* lastRecord = nullptr;
    /// The viewer of the chosen file.
    QProcess* viewProcess;

public slots:
    /// Opens the dialog at the page of srcMode.
    void myshow(Record* rec);
    /// Passes a record of another window on to RecReady().
    void RepeatRec(Record* rec);
    /// Adds a template to the list, or puts it in place of the one that is being edited, and selects it.
    void addNewFormat(QString format);
    /// Fills `rec`, whose channel is set, with one data column of the file that was read, enters it in the
    /// recent records unless Reopening is set, and sends it. Does nothing when no file was read.
    void readASCIIData(Record* rec);
    /// Enters a loaded record in the recent records.
    void SaveRecInfo(Record* rec, int type, QString dir, QString format);
    /// Loads the record of a recent entry without asking for more.
    void GiveSpecRec(RecentRecs r);
    /// The table had no place for a record: the rest of the running batch is skipped.
    void OnTableIsFull_RecLoadError(Record* r);
    /// Writes a record in the recording format and tells the outcome with RecSaved().
    void SaveRecsP(Record* rec, QDir* directory, quint8 number);
    /// Reads a recording on: sends the one that began at `start`, up to where it now ends, with a sample each
    /// `interval` seconds. Works under the SLEEP of the sender.
    void updRecords_slot(QString path, QDateTime start, int channel, double interval);
    /// Takes the dialog out of sight while records are read on, and brings it back.
    void hideWindows_forUpdRec_slot(bool hidden);
    /// Chooses a channel of the folder page or not, as it was not; counted from 0.
    void headerItemClicked(int channel);
    /// While a file is being read this stops the reading, else it hides the dialog.
    void reject() override;

    void on_FromFileButton_pressed();
    void on_FromFolderButton_pressed();
    void on_ViewSch_btn_clicked();
    void on_ViewTabl_btn_clicked();
    void on_kat_selectAllChanBtn_clicked();
    void on_kat_deselectAllChanBtn_clicked();
    void on_RecRecsMenu_clicked();
    void on_Btn_ViewRecList_clicked();
    void on_Btn_Stop_clicked();
    void on_Btn_Close_clicked();
    void on_file_OpenBtn_clicked();
    void on_file_ViewBtn_clicked();
    void on_file_AddFrmtBtn_clicked();
    void on_file_EditFrmtBtn_clicked();
    void on_file_DelFrmtBtn_clicked();
    void on_file_guessBtn_clicked();
    void on_file_LE_Path_textChanged(const QString& path);
    void on_file_tabWidget_currentChanged(int tab);
    void on_FileFormat_byDevice_currentIndexChanged(int index);
    void on_file_Combo_Formats_currentIndexChanged(int index);
    void on_pushButtonSaveFormat_clicked();
    void on_file_DelFrmtBtn_2_clicked();
    void on_RecRecsTable_itemDoubleClicked(QTableWidgetItem* item);

signals:
    /// The receiver takes the samples over; the object itself stays the dialog's.
    void RecReady(Record* rec);
    void AllRecsAdded();
    /// What SaveRecsP() has to tell the user; empty when the record is written.
    void RecSaved(const QString& fault);
    /// Shows the dialog's own message box; the result is the button pressed.
    QDialogButtonBox::StandardButton showMessage(const QString& text, bool warning,
        QDialogButtonBox::StandardButtons buttons, const QStringList& details);

protected:
    void changeEvent(QEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    /// A source of data: its button in the menu, its page, and what goes with them.
    struct SourcePage {
        quint8 source;
        QAbstractButton* button;
        QWidget* frame;
        QSize size; // of the dialog
        std::function<QString()> help;
        std::function<QString()> forwardText;
        std::function<void()> forward;
    };
    using Progress = std::function<bool(double)>;

    // openfileglobform.cpp
    void setUpPages();
    const SourcePage& page(quint8 source) const;
    void showPage(quint8 source);
    void fitPage();
    void retranslate();
    void showForwardText();
    void showBusy(bool busy);
    void withProgress(const std::function<void(const Progress&)>& read);
    void say(const QString& text, const QStringList& details = {});
    void tell(const QString& status);
    void tellSkipped(const QStringList& names);
    void finishLoading();

    // openfileglobform_file.cpp
    void setUpFilePage();
    void fillHistory();
    void fillTemplates();
    void fillTypes();
    void fillByType(int type);
    void setStart(QDateTime start);
    void propose(const QString& path);
    void editTemplate(const QString& format, bool replace);
    QString makePreview(Preview* preview) const;
    void keepOpenedPath(const QString& directory);

    // openfileglobform_read.cpp
    void forwardFromFile();
    bool checkFields(AsciiRequest* request);
    void takeTemplate(AsciiRequest* request);
    bool readFile(const AsciiRequest& request);
    bool accepted(const AsciiResult& result);
    QString failureText(const AsciiResult& result) const;
    void sendRecords(const AsciiRequest& request);

    // openfileglobform_columns.cpp
    void setUpColumnPage();
    void forwardFromColumns();
    void showNamedFormats(const QString& current);

    // openfileglobform_folder.cpp
    void setUpFolderPages();
    void openFolder(const QString& path);
    void forwardFromFolder();
    bool isManyDaysWanted(qint64 days, int channels);
    void forwardFromRecordingFile();
    void showIndex(
        const QString& directory, const QDate& first, const QDate& last, const QByteArray& channels);
    void sizeIndex(int channels);
    void backFromChart();
    QString indexText() const;
    void chartLoaded();
    void showView(bool table);
    bool tellShortDay(const QString& text);
    bool sendKnownRecording(const KnownRecording& known, const Progress& progress);
    bool reopenRecording(const RecentRecs& entry);

    // openfileglobform_recent.cpp
    void setUpRecentPage();
    void fillRecent();
    void forwardFromRecent();
    void loadRecent(const QVector<int>& rows);
    bool reopen(const RecentRecs& entry);
    bool reopenText(const RecentRecs& entry);
    AsciiRequest requestFor(const RecentRecs& entry) const;
    void showRequest(const AsciiRequest& request);

    std::unique_ptr<Ui_OpenFileGlobForm> ui;
    std::unique_ptr<WarnDiag> diagLocal;
    OpenGlobForm_winProp* m_prop;
    std::vector<SourcePage> m_pages;
    addNewFormat_class* m_templateDialog;

    // The template tab. The guess runs once a file and does not undo what the user has chosen.
    QString m_guessedPath;
    bool m_userChose = false;
    QString m_lastPath; // of the last load
    PathHistory* m_history = nullptr;
    QString m_replaced; // the template that is being edited
    QString m_edited; // as it stands in the template dialog, while that is open

    // The folder and chart pages.
    PathHistory* m_folderHistory = nullptr;
    std::unique_ptr<mapStruct> m_map;
    quint8 m_chartFrom = FolderParameters; // the page that led to the chart
    int m_chartTaken = 0; // records that the running load of the chart has sent
    bool m_tableShown = false; // in place of the chart
    bool m_hiddenForUpdate = false;

    /// The file that was read, until its records are sent; and the data column that readASCIIData() takes.
    std::unique_ptr<AsciiRequest> m_request;
    std::unique_ptr<AsciiFile> m_file;
    int m_column = 0;
    /// Records of the last load: their receivers may look at them until the next one.
    std::vector<std::unique_ptr<Record>> m_records;
    bool m_reading = false;
    bool m_stop = false;
    bool m_reopening = false; // a recent entry is being loaded
    bool m_tableFull = false; // since the start of the running batch
};
