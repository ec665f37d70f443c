#pragma once

#include "app/mainwindow.h"
#include "base/globals.h"
#include "plot/avarform.h"
#include "plot/tableform.h"
#include "prompt/prompt.h"
#include "support/dayrecord.h"
#include "support/scopedhome.h"
#include "table/selrectable.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QRegularExpression>
#include <QTableWidget>
#include <QTest>

#include <memory>

/// Reads "BA+300 i2": the signals B less A, and after them by letter: n samples (else 300), + seconds later,
/// i interval (s), w samples without in the middle, k kind of data, l live.
inline double part(const QString& record, char letter, double otherwise)
{
    const auto found =
        QRegularExpression(QStringLiteral("[%1](-?[0-9.e]+)").arg(QLatin1Char(letter))).match(record);
    return found.hasMatch() ? found.captured(1).toDouble() : otherwise;
}

inline double noise(int i)
{
    return 1e-9 * ((i * 7919) % 101);
}

/// The main window with its record table, for tests that work it by its own buttons.
class TableWindow {
public:
    void open();
    void close();

    template <typename T> T* child(const QString& name) { return m_window->findChild<T*>(name); }
    void press(const QString& name) { QTest::mouseClick(child<QAbstractButton>(name), Qt::LeftButton); }
    void check(const QString& boxes);
    /// Adds records, each told as part() reads it.
    void add(const QString& records);
    void checkRows(const QVector<int>& rows);
    int openResults();
    QVector<double> values(int row) const { return samplesOf(m_table->load_record[row].x); }

    std::unique_ptr<ScopedHome> m_home;
    std::unique_ptr<MainWindow> m_window;
    SelRecTable* m_table = nullptr;
    QTableWidget* m_rows = nullptr;
};

inline void TableWindow::open()
{
    removeF0Vals = false;
    m_home = std::make_unique<ScopedHome>();
    m_window = std::make_unique<MainWindow>(1, nullptr);
    m_window->resize(1400, 900);
    m_window->show();
    m_table = m_window->findChild<SelRecTable*>();
    m_rows = child<QTableWidget>("recTable");
}

inline void TableWindow::close()
{
    prompt::setResponder({});
    m_window.reset();
    m_home.reset();
}

inline void TableWindow::check(const QString& boxes)
{
    for (const QString& box : boxes.split(QLatin1Char(' '), Qt::SkipEmptyParts))
        m_window->findChild<QCheckBox*>(box)->setChecked(true);
}

inline void TableWindow::add(const QString& records)
{
    for (const QString& wanted : records.split(QLatin1Char(' '))) {
        const double interval = part(wanted, 'i', 1.0);
        const int n = int(part(wanted, 'n', 300)), without = int(part(wanted, 'w', 0));
        std::vector<TestDay> days(1);
        for (int i = 0; i < n + without; ++i) {
            if (i >= n / 2 && i < n / 2 + without)
                continue;
            if (i > 0 && int(i * interval / 86400) > int(days.back().t.back() / 86400))
                days.emplace_back();
            days.back().t.push_back(i * interval);
            days.back().x.push_back(noise(i));
        }
        Record made;
        const QDateTime start(QDate(2026, 3, 1), QTime(0, 0));
        fillDays(made, days, interval, start.addMSecs(qint64(part(wanted, '+', 0) * 1000)));
        made.meas_sig = wanted.at(0);
        made.ref_sig = wanted.at(1);
        made.ch = m_table->free_row + 1;
        made.dataType = quint16(part(wanted, 'k', 0));
        made.dynamic = part(wanted, 'l', 0) > 0;
        m_table->addRecord(&made);
    }
}

inline void TableWindow::checkRows(const QVector<int>& rows)
{
    m_table->uncheckAllRec();
    for (const int row : rows)
        m_rows->item(row, 0)->setCheckState(Qt::Checked);
}

/// Presses every button that has a result to show, and gives how many those were.
inline int TableWindow::openResults()
{
    int opened = 0;
    for (const char* name : {"avarGrBtn", "avarTabBtn", "trendTabBtn", "spectrGrBtn", "spectrTabBtn"}) {
        opened += child<QAbstractButton>(name)->isEnabled() ? 1 : 0;
        press(name);
    }
    return opened;
}
