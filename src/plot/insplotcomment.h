#pragma once

#include <QDialog>
#include <QPointer>
#include <QString>

#include <memory>

class QwtTextLabel;
class Ui_InsPlotComment;

/// Asks for the text of a comment on a graph, a new one or one that is being corrected.
class InsPlotComment : public QDialog {
    Q_OBJECT
public:
    explicit InsPlotComment(QWidget* parent = nullptr);
    ~InsPlotComment() override;

    void reject() override;

public slots:
    void on_buttonBox_accepted();
    void on_buttonBox_rejected();
    /// Empties the text.
    void on_pushButton_clicked();
    /// Opens with the text of a label, which takes the text back.
    void CorrectComment(QwtTextLabel* label);
    /// Deletes the label.
    void DelComment(QwtTextLabel* label);

signals:
    /// A new comment; its lines are joined by "<br />".
    void insComment(QString text);

protected:
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    std::unique_ptr<Ui_InsPlotComment> ui;
    QPointer<QwtTextLabel> m_corrected;
};
