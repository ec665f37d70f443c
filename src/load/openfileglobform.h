#pragma once

#include <QDateTime>
#include <QDialog>
#include <QDialogButtonBox>
#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

class AsciiFile;
class QProcess;
class Ui_OpenFileGlobForm;
class WarnDiag;
struct AsciiRequest;
struct AsciiResult;
struct OpenGlobForm_winProp;
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

    /// Takes the lists of templates and opened paths. `prop` stays the owner's and gets the user's changes.
    void setProp(OpenGlobForm_winProp* prop);
    /// Shows the dialog at the file page with this file filled in.
    void openFile(const QString& path);

    /// Row of the guessed type in FileFormat_byDevice; `start` gets the start of the measurement.
    int GetFile_Format(QString fileName, QDateTime& start);
    /// Guesses the type of the file and fills the page by it.
    void AutoFormat(QString fileName);
    /// Hides the pages of all sources.
    void HideFrames();

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
    /// Adds a template to the list and selects it.
    void addNewFormat(QString format);
    /// Fills `rec`, whose channel is set, with one data column of the file that was read, and sends it. Does
    /// nothing when no file was read.
    void readASCIIData(Record* rec);
    /// While a file is being read this stops the reading, else it hides the dialog.
    void reject() override;

    void on_FromFileButton_pressed();
    void on_Btn_ViewRecList_clicked();
    void on_Btn_Stop_clicked();
    void on_Btn_Close_clicked();
    void on_file_OpenBtn_clicked();
    void on_file_ViewBtn_clicked();
    void on_file_DelFrmtBtn_clicked();
    void on_file_LE_Path_textChanged(const QString& path);
    void on_FileFormat_byDevice_currentIndexChanged(int index);

signals:
    /// The receiver takes the samples over; the object itself stays the dialog's.
    void RecReady(Record* rec);
    void AllRecsAdded();
    /// Shows the dialog's own message box; the result is the button pressed.
    QDialogButtonBox::StandardButton showMessage(const QString& text, bool warning,
        QDialogButtonBox::StandardButtons buttons, const QStringList& details);

protected:
    void changeEvent(QEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    struct Reading;

    void setUpFields();
    void retranslate();
    void fillTemplates();
    void fillTypes();
    void showFilePage();
    void showForwardText();
    void showBusy(bool busy);
    void fillByType(int type);
    void say(const QString& text, const QStringList& details = {});

    void forwardFromFile();
    bool checkFields(AsciiRequest* request);
    void takeTemplate(AsciiRequest* request);
    bool readFile(const AsciiRequest& request);
    bool accepted(const AsciiResult& result);
    QString failureText(const AsciiResult& result) const;
    void sendRecords(const AsciiRequest& request);
    void keepOpenedPath(const QString& directory);

    std::unique_ptr<Ui_OpenFileGlobForm> ui;
    std::unique_ptr<WarnDiag> diagLocal;
    OpenGlobForm_winProp* m_prop;
    /// The file that was read, until its records are sent; and the data column that readASCIIData() takes.
    std::unique_ptr<AsciiFile> m_file;
    int m_column = 0;
    /// Records of the last load: their receivers may look at them until the next one.
    std::vector<std::unique_ptr<Record>> m_records;
    QString m_guessedPath;
    bool m_reading = false;
    bool m_stop = false;
};
