#pragma once

#include "load/core/settings.h"

#include <QDialog>

#include <memory>

class QAbstractButton;
class Ui_Properties;

/// The options dialog, and the owner of all settings in memory.
class Properties : public QDialog {
    Q_OBJECT
public:
    /// Reads the configuration file.
    explicit Properties(QWidget* parent = nullptr);
    ~Properties() override;

    /// Puts the defaults, and over them what the configuration file says, in place of the settings.
    void readXML();
    /// Room for all fields.
    QSize sizeHint() const override;

    Settings settings;

signals:
    /// The dialog was accepted.
    void PropChanged();

public slots:
    void on_buttonBox_accepted();
    /// The defaults take effect at once; cancelling the dialog takes them back.
    void on_buttonBox_clicked(QAbstractButton* button);
    /// Asks for the directory of the CGGTTS store.
    void on_pushButton_clicked();
    /// Gives the window this size, as far as the screen has room and the fields have enough.
    void setNewSize(QSize size);
    void reject() override;

protected:
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void showSettings();
    void showPathState();

    std::unique_ptr<Ui_Properties> ui;
    QAbstractButton* m_defaultsBtn = nullptr;
    Settings m_shown; // when the window opened
};
