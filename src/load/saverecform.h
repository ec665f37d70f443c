#pragma once

#include <QDialog>
#include <QString>
#include <QStringList>

#include <memory>

class QMdiSubWindow;
class Ui_saverecform;
struct Record;

/// Saves one record as a text file of times and values, with a comment at its head.
class saverecform : public QDialog {
    Q_OBJECT
public:
    explicit saverecform(QWidget* parent = nullptr);
    ~saverecform() override;

    /// The start folder from the settings, which becomes WorkFolder if it exists. The text stays the owner's
    /// and gets the folder of each file saved.
    void setProp(QString* startPath);

public slots:
    /// Opens the dialog with this record. It keeps the samples for itself, so that the record may go.
    void Show(Record* rec);
    void on_OpenDirBtn_clicked();
    void on_ChangeCommentBtn_clicked();
    void on_OKButton_clicked();
    void on_CancelButton_clicked();
    /// While a file is being written this stops the writing, else it hides the dialog.
    void reject() override;
    void done(int result) override;

protected:
    void changeEvent(QEvent* event) override;

private:
    struct Writing;

    QMdiSubWindow* frame() const;
    void showPreview();
    void showFileName();
    void showEditing();
    QString fileName() const;
    bool mayWrite(const QString& file);
    bool write(const QString& file);
    void keepFolder(const QString& file);

    std::unique_ptr<Ui_saverecform> ui;
    std::unique_ptr<Record> m_record;
    QString* m_startPath = nullptr;
    QStringList m_comment; ///< lines for the file, each with its "#"
    bool m_defaultHeader = true; ///< in place of a comment
    bool m_editing = false;
    bool m_writing = false;
    bool m_stop = false;
};
