#pragma once

#include "stats/incremental.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <QWidget>

#include <functional>

class QAction;
class QGridLayout;
class QMenu;
class QTableWidget;
class popupmenu;
struct TextTable;

/// A window that shows results as a table, with the results down the columns: the row heads name the values,
/// and each call of addLine() adds a column.
class TableForm : public QWidget {
    Q_OBJECT
public:
    explicit TableForm(QWidget* parent = nullptr);

    /// Gives the table at least `count` rows and `heads` as their heads. Does nothing when there are as many
    /// rows already.
    void setColNum(int count, QStringList heads);
    void setBoldLine(QStringList heads);
    void setColWidth(int column, int width);
    void setRowCount(int count);
    /// Appends a column with one item for each row; rows beyond the list stay blank, texts beyond the rows
    /// fall away.
    void addLine(QStringList texts);
    /// Fits the columns to their contents.
    void resizeCol();

    /// Sets the window title from `source`, now and again whenever the language changes.
    void setTitleSource(std::function<QString()> source);
    /// The same for the row heads of rows that exist.
    void setHeadSource(std::function<QStringList()> source);

    QWidget* gridLayoutWidget;
    QGridLayout* gridLayout;
    QTableWidget* sorchTable;
    /// Channel of each column.
    QList<unsigned short> channels;
    /// 4 for cross-processing + 2 for overlap + 1 for removed drift.
    int tableType = 0;
    /// The statistic of a table of stability values, by avarTypeOf; -1 for a table of another kind.
    int avarType = -1;

public slots:
    /// Writes the table as text in Windows-1251.
    void exportASCII();
    void saveTab();
    void printTab();
    void copyAllTab();
    /// Copies the selected rows; a row counts as selected when its first item is. The rows that name the
    /// columns are always taken.
    void copySelected();
    /// Writes the first `count` running values of a record into its column, under the heads of their
    /// averaging times `tau` (s), if they are of the statistic of the table. A row that is missing is put in
    /// at its place. A cell for which there is no value yet stays as it is.
    void UpdDynValues(int count, varInf info, const double* tau);

signals:
    void IsClosing(QObject* window);

protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void retranslate();
    void putItem(int row, int column, const QString& text);
    void writeValue(int column, double tau, double value);
    int rowOfTau(double tau);
    TextTable content() const;
    bool namesColumns(const QString& head) const;
    void writeText(const QString& file, const QString& text);

    QMenu* m_options;
    QAction* m_export;
    popupmenu* m_popup;
    std::function<QString()> m_title;
    std::function<QStringList()> m_heads;
};
