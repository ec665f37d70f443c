#pragma once

#include <QDialog>

#include <memory>

class Ui_OptionsForm;

/// Asks for the way in which records are processed.
class OptionsForm : public QDialog {
    Q_OBJECT
public:
    enum Mode {
        Standard,
        CrossYX, // both series of one pair of signals
        CrossXYZ, // three signals
    };

    explicit OptionsForm(QWidget* parent = nullptr);
    ~OptionsForm() override;

    /// The mode at hand; a cancelled dialog keeps the one that it was opened with.
    Mode mode() const { return m_mode; }
    void setMode(Mode mode);

public slots:
    void accept() override;
    void reject() override;

protected:
    void changeEvent(QEvent* event) override;

private:
    std::unique_ptr<Ui_OptionsForm> ui;
    Mode m_mode = Standard;
};
