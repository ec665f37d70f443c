#pragma once

#include <QMainWindow>
#include <QPointer>

#include <memory>

class OpenFileGlobForm;
class QLabel;
class QMdiArea;
class QMdiSubWindow;
class QTimer;
class SelRecTable;
class Ui_MainWindow;

/// Owns the area of windows and the long-lived forms, and joins them by signals; it holds almost no logic of
/// its own.
class MainWindow : public QMainWindow {
    Q_OBJECT
public:
    /// A single argument that names an existing file opens the loading dialog with it.
    MainWindow(int argumentCount, char** arguments, QWidget* parent = nullptr);
    ~MainWindow() override;

public slots:
    /// Moves a log file that has grown too long aside.
    void chkLog();
    /// Gives a graph or table window a frame in the area and shows it. The frame goes when the window is
    /// deleted.
    void addWindow(QWidget* window);

protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    // mainwindow.cpp
    void makeForms();
    void connectForms();
    void connectMenus();
    void openArgument(int argumentCount, char** arguments);
    void showAbout();
    void updateHint();
    void composeTexts();

    // mainwindow_windows.cpp
    void placeTable();
    void showTable();
    void showEverything();
    void retranslateFrames();
    void arrangeAll();
    void tileGraphs();
    void listWindows();

    std::unique_ptr<Ui_MainWindow> ui;
    QMdiArea* m_area = nullptr;
    SelRecTable* m_table = nullptr;
    QPointer<QMdiSubWindow> m_tableFrame;
    OpenFileGlobForm* m_loading = nullptr;
    QTimer* m_logTimer = nullptr;
    QLabel* m_hint = nullptr;
    QRect m_tablePlace; // where the table was put last, until the user moves it
};
