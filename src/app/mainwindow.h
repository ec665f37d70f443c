#pragma once

#include "load/core/recentrecs.h"

#include <QMainWindow>
#include <QPointer>
#include <QStringList>

#include <array>
#include <memory>

class HelpForm;
class OpenFileGlobForm;
class Properties;
class QHelpEngine;
class QLabel;
class QMdiArea;
class QMdiSubWindow;
class QTimer;
class SelRecTable;
class Ui_MainWindow;
class WindowLayout;
class saverecform;

/// Owns the area of windows and the long-lived forms, and joins them by signals; it holds almost no logic of
/// its own.
class MainWindow : public QMainWindow {
    Q_OBJECT
public:
    /// Arguments that name existing files open the loading dialog with them.
    MainWindow(int argumentCount, char** arguments, QWidget* parent = nullptr);
    ~MainWindow() override;

public slots:
    /// Moves a log file that has grown too long aside.
    void chkLog();
    /// Gives a graph or table window a frame in the area and shows it. The frame goes when the window is
    /// deleted.
    void addWindow(QWidget* window);
    /// Hands the settings to the forms.
    void SetProps();
    /// Writes the configuration file: the settings and the recent records. A failure goes to the log.
    void writeRecentRecs();
    /// Shows the ring of recent records in its menu, the newest first.
    void UpdateRecentRecsMenu();
    /// Asks for the recent record whose action was triggered.
    void RecRecsMenuTriggered();
    /// Tells of the recent record under the mouse in the status bar.
    void showRecsInfo(QAction* action);
    void helpsetupfinished();
    void ShowPrevHelpPage();
    void ShowNextHelpPage();

signals:
    void GiveHimRec(const RecentRecs& entry);

protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    // mainwindow.cpp
    void makeForms();
    void connectForms();
    OpenFileGlobForm* loading();
    void connectMenus();
    void openArguments(int argumentCount, char** arguments);
    void showAbout();
    void updateHint();
    void composeTexts();

    // mainwindow_recent.cpp
    std::array<QAction*, maxRecentRecs> recentActions() const;
    void readRecentRecs();
    void offerRecentFiles();
    /// Tells of a recent record whose file or directory is gone.
    void SetEnvInfo(const QString& path);

    // mainwindow_help.cpp
    QString helpCollection() const;
    void checkHelp();
    void openHelpCollection();
    HelpForm* help();
    void showHelp(const QString& page);
    void showHelpOfWindow();

    // mainwindow_windows.cpp
    void placeTable();
    void showTable();
    void showEverything();
    void retranslateFrames();
    QList<QMdiSubWindow*> windowsInUse() const;
    void arrangeAll();
    void tileGraphs();
    void listWindows();
    void keepWindows();

    std::unique_ptr<Ui_MainWindow> ui;
    std::unique_ptr<WindowLayout> m_layout;
    QMdiArea* m_area = nullptr;
    Properties* m_properties = nullptr;
    HelpForm* m_help = nullptr;
    QPointer<QMdiSubWindow> m_helpFrame;
    QHelpEngine* m_helpEngine = nullptr;
    SelRecTable* m_table = nullptr;
    QPointer<QMdiSubWindow> m_tableFrame;
    saverecform* m_save = nullptr;
    OpenFileGlobForm* m_loading = nullptr;
    QTimer* m_logTimer = nullptr;
    QLabel* m_hint = nullptr;
    QRect m_tablePlace; // where the table was put last, until the user moves it
};
