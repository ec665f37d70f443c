#pragma once

#include <QDialog>
#include <QDialogButtonBox>
#include <QStringList>

#include <memory>

class Ui_WarnDiag;

/// The message dialog with a list of details behind a link.
class WarnDiag : public QDialog {
    Q_OBJECT
public:
    explicit WarnDiag(QWidget* parent = nullptr);
    ~WarnDiag() override;

public slots:
    /// Shows `text`, with a warning sign when `warning` is set and an information sign otherwise, and waits.
    /// `details`, when there are any, stand behind the link "Показать подробности проблемы...".
    /// Returns the button pressed; closing the window counts as Cancel, or as Ok where there is no Cancel.
    QDialogButtonBox::StandardButton showMe(const QString& text, bool warning = true,
        QDialogButtonBox::StandardButtons buttons = QDialogButtonBox::Ok, const QStringList& details = {});

    void on_MoreLbl_clicked();

protected:
    void changeEvent(QEvent* event) override;

private:
    void showDetails(bool shown);

    std::unique_ptr<Ui_WarnDiag> ui;
    QDialogButtonBox::StandardButton m_pressed = QDialogButtonBox::NoButton;
};
