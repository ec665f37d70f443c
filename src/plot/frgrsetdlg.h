#pragma once

#include <QDialog>

#include <memory>

class Ui_FrGrSetDlg;

/// Asks for a measurement interval in whole seconds.
class FrGrSetDlg : public QDialog {
    Q_OBJECT
public:
    /// `value` is where the interval goes; it must outlive the dialog.
    explicit FrGrSetDlg(double* value, QWidget* parent = nullptr);
    ~FrGrSetDlg() override;

public slots:
    /// Writes the interval and closes. One that is too large is told and closes without writing; a field
    /// without a number stays open.
    void on_pushButton_clicked();

protected:
    void changeEvent(QEvent* event) override;

private:
    std::unique_ptr<Ui_FrGrSetDlg> ui;
    double* m_value;
};
