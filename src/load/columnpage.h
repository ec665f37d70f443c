#pragma once

#include "load/core/readformat.h"

#include <QStringList>
#include <QWidget>

#include <memory>

class QCheckBox;
class Ui_ColumnPage;

/// The page of the loading dialog for files that are read by columns: the list of files and the fields of a
/// ReadFormat, with a preview. The fields count columns from 1, the ReadFormat from 0.
class ColumnPage : public QWidget {
    Q_OBJECT
public:
    explicit ColumnPage(QWidget* parent = nullptr);
    ~ColumnPage() override;

    /// The files in the order in which the user put them; the reader may sort them by the dates in their
    /// names.
    const QStringList& files() const { return m_files; }
    /// Adds the files that are not in the list yet.
    void addFiles(const QStringList& files);
    void setFiles(const QStringList& files);

    ReadFormat format() const;
    void setFormat(const ReadFormat& format);

    /// What is missing for a read, a line each.
    QStringList faults() const;

    /// Puts the names of the saved formats in the list and shows `current`; an empty name shows none.
    void setNames(const QStringList& names, const QString& current);
    /// The saved format that is shown; empty for none.
    QString name() const;

    /// Shows the words of the current language.
    void retranslate();

signals:
    /// The user asks for more files.
    void filesWanted();
    /// The user chose a saved format.
    void nameChosen(const QString& name);

public slots:
    void on_file_RemoveBtn_clicked();
    void on_file_UpBtn_clicked();
    void on_file_DownBtn_clicked();
    void on_file_Combo_Formats_2_activated(int row);

private:
    void restrictFields();
    void connectFields();
    void keepOneOf(const QList<QCheckBox*>& boxes);
    void fillChoices();
    void showFiles();
    void showStates();
    void formatEdited();
    void moveFile(int step);
    QStringList selectedFiles() const;

    std::unique_ptr<Ui_ColumnPage> ui;
    QStringList m_files;
    QStringList m_shown; // in the order of reading; those that will not be read stand last
};
