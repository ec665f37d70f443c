#include "app/mainwindow.h"

#include "base/debuglog.h"
#include "base/globals.h"
#include "base/paths.h"
#include "load/core/configfile.h"
#include "load/core/recentrecsparser.h"
#include "load/openfileglobform.h"
#include "load/properties.h"
#include "ui_mainwindow.h"

#include <QAction>
#include <QDir>
#include <QFileInfo>
#include <QMenu>
#include <QStatusBar>

namespace {

constexpr int infoShown = 10000; // ms

} // namespace

std::array<QAction*, maxRecentRecs> MainWindow::recentActions() const
{
    return {ui->actionRec1, ui->actionRec2, ui->actionRec3, ui->actionRec4, ui->actionRec5, ui->actionRec6,
        ui->actionRec7, ui->actionRec8, ui->actionRec9, ui->actionRec10};
}

void MainWindow::readRecentRecs()
{
    QString error;
    const QString file = paths::config() + QLatin1String("/recfiles.xml");
    if (QFileInfo::exists(file) && !::readRecentRecs(file, &error))
        DebugLOG(("The recent records could not be read: " + error).toUtf8().constData());
    UpdateRecentRecsMenu();
    for (const RecentRecs& entry : recentRecords()) {
        if (!QFileInfo::exists(entry.dir.path()))
            SetEnvInfo(entry.dir.path()); // the last one is told
    }
}

/// The oldest first, so that the newest file stands at the head of what the loading dialog offers.
void MainWindow::offerRecentFiles()
{
    const QVector<RecentRecs> entries = recentRecords();
    for (auto entry = entries.crbegin(); entry != entries.crend(); ++entry) {
        if (!QFileInfo::exists(entry->dir.path()))
            continue;
        if (entry->type == recentAscii)
            m_loading->add_file_LE_Path(entry->dir.path());
        else if (entry->type == recentRecording)
            m_loading->add_Kat_LE_Path(entry->dir.path());
    }
}

void MainWindow::SetEnvInfo(const QString& path)
{
    statusBar()->showMessage(
        tr("Недавно открытая запись не найдена: %1").arg(QDir::toNativeSeparators(path)), infoShown);
}

void MainWindow::UpdateRecentRecsMenu()
{
    const QVector<RecentRecs> entries = recentRecords();
    const std::array<QAction*, maxRecentRecs> actions = recentActions();
    for (int i = 0; i < maxRecentRecs; ++i) {
        QAction* action = actions[size_t(i)];
        action->setVisible(i < entries.size());
        if (i >= entries.size())
            continue;
        // An ampersand in a name is not a key to press.
        action->setText(QString(entries[i].str).replace(QLatin1Char('&'), QLatin1String("&&")));
        action->setToolTip(QDir::toNativeSeparators(entries[i].dir.path()));
    }
    ui->RecentRecs->setDisabled(entries.isEmpty());
}

void MainWindow::RecRecsMenuTriggered()
{
    // Deliberate: nothing clears it, so from here on no record that is read enters the list again.
    Reopening = true;
    const std::array<QAction*, maxRecentRecs> actions = recentActions();
    const QVector<RecentRecs> entries = recentRecords();
    for (int i = 0; i < entries.size(); ++i) {
        if (actions[size_t(i)] == sender()) {
            emit GiveHimRec(entries[i]);
            return;
        }
    }
}

void MainWindow::showRecsInfo(QAction* action)
{
    const std::array<QAction*, maxRecentRecs> actions = recentActions();
    const QVector<RecentRecs> entries = recentRecords();
    for (int i = 0; i < entries.size(); ++i) {
        if (actions[size_t(i)] != action)
            continue;
        const RecentRecs& entry = entries[i];
        const QString form = QStringLiteral("dd.MM.yyyy hh:mm:ss");
        statusBar()->showMessage(tr("%1: с %2 по %3, отсчётов: %4")
                                     .arg(QDir::toNativeSeparators(entry.dir.path()),
                                         entry.start.toString(form), entry.stop.toString(form))
                                     .arg(entry.num),
            infoShown);
    }
}

void MainWindow::writeRecentRecs()
{
    Settings& settings = m_properties->settings;
    settings.language = App_lang;
    settings.lastUsedDevID = lastUsedDevID;
    QString error;
    if (!writeSettings(paths::config() + QLatin1String("/recfiles.xml"), settings, recentRecords(), &error))
        DebugLOG(("The configuration file could not be written: " + error).toUtf8().constData());
}
