#pragma once

#include <QDialog>

#include <memory>

class Ui_KdecLoadDlg;

/// Asks for the decimation factor of a load.
class KdecLoadDlg : public QDialog {
    Q_OBJECT
public:
    explicit KdecLoadDlg(QWidget* parent = nullptr);
    ~KdecLoadDlg() override;

public slots:
    /// Takes the factor, or 1 for a text that is no positive whole number, and closes.
    void on_pushButton_clicked();
    void on_pushButton_2_clicked();

signals:
    void load(int kdec);

protected:
    void changeEvent(QEvent* event) override;

private:
    std::unique_ptr<Ui_KdecLoadDlg> ui;
};
