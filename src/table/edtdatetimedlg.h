#pragma once

#include <QDialog>

class QDateTimeEdit;
struct Record;

/// Edits the start of a record; the stop moves with it, since the length of the record stays.
class EdtDatetimeDlg : public QDialog {
    Q_OBJECT
public:
    EdtDatetimeDlg(Record* record, QWidget* parent = nullptr);

signals:
    /// The times of the record were changed.
    void edtRecDateTime();

private:
    void take();
    void showStop();

    Record* m_record;
    QDateTimeEdit* m_start;
    QDateTimeEdit* m_stop;
};
