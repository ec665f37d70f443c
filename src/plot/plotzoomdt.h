#pragma once

#include <QDateTime>
#include <QDialog>

#include <memory>

class Ui_PlotZoomDT;

/// Asks for the stretch of time that a graph shall show.
class PlotZoomDT : public QDialog {
    Q_OBJECT
public:
    explicit PlotZoomDT(QWidget* parent = nullptr);
    ~PlotZoomDT() override;

    /// The stretch asked for.
    QDateTime start, stop;

    void myshow();
    /// Stores both times and shows them in the edits.
    void setdt(QDateTime from, QDateTime to);

public slots:
    void on_buttonBox_accepted();
    void on_buttonBox_rejected();
    void on_dateTimeEdit_editingFinished();
    void on_dateTimeEdit_2_editingFinished();
    void on_restore_pBtn_clicked();

signals:
    void zoomIt();
    void restore();

protected:
    void changeEvent(QEvent* event) override;

private:
    void checkStretch();

    std::unique_ptr<Ui_PlotZoomDT> ui;
};
