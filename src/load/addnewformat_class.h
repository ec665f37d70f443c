#pragma once

#include <QDialog>
#include <QString>

#include <memory>

class Ui_addNewFormat_class;

/// Edits one format template and tells at each change whether it is correct.
class addNewFormat_class : public QDialog {
    Q_OBJECT
public:
    explicit addNewFormat_class(QWidget* parent = nullptr);
    ~addNewFormat_class() override;

    /// Checks a template, shows the verdict with its reason, and returns it.
    bool IsFormatCorrect(QString format);

public slots:
    /// Opens the dialog with this text.
    void edit(const QString& format);
    void on_lineEdit_textChanged(const QString& format);
    void on_buttonBox_accepted();
    void on_buttonBox_rejected();

signals:
    /// The user has taken a correct template.
    void newFormat(QString format);
    /// The template as it stands after each change; empty while it is not correct.
    void formatEdited(QString format);

protected:
    void changeEvent(QEvent* event) override;
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void fitReason();
    void fitHeight();

    std::unique_ptr<Ui_addNewFormat_class> ui;
    bool m_correct = false;
};
