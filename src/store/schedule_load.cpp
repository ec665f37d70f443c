#include "store/schedule.h"

#include "base/debuglog.h"
#include "base/globals.h"
#include "prompt/guard.h"
#include "prompt/progressscope.h"
#include "prompt/prompt.h"
#include "store/core/mapstruct.h"
#include "store/core/recordingload.h"
#include "store/kdecloaddlg.h"
#include "ui_schedule.h"

#include <QGuiApplication>
#include <QScopeGuard>

#include <algorithm>

namespace {

const QString timeForm = QStringLiteral("dd.MM.yyyy hh:mm:ss");

/// The user answers with a plain pointer, also in the middle of a load.
QMessageBox::StandardButton tell(QWidget* parent, QMessageBox::Icon icon, const QString& title,
    const QString& text, QMessageBox::StandardButtons buttons = QMessageBox::Ok,
    const QMap<QMessageBox::StandardButton, QString>& labels = {})
{
    QGuiApplication::setOverrideCursor(Qt::ArrowCursor);
    const auto pressed = prompt::message(parent, icon, title, text, buttons, labels);
    QGuiApplication::restoreOverrideCursor();
    return pressed;
}

} // namespace

void schedule::on_pushButtonLoad_clicked()
{
    load(1);
}

void schedule::on_pBtnLoadDec_clicked()
{
    if (SLEEP)
        return;
    KdecSelForm->show();
    KdecSelForm->activateWindow();
    KdecSelForm->setFocus();
}

void schedule::on_stopBtn_clicked()
{
    stopLoading();
}

void schedule::stopLoading()
{
    m_stopped = true;
}

void schedule::updRecords(double kdec)
{
    if (SLEEP)
        return;
    chooseAll();
    load(int(std::min(std::max(1.0, kdec), 1e9) + 0.5)); // in this order NaN gives 1
}

void schedule::setLoading(bool loading)
{
    AcceptScheduleEvents = !loading;
    m_stopped = false;
    ui->stopBtn->setVisible(loading);
    ui->tableWidget->setEnabled(!loading);
    ui->pushButtonLoad->setEnabled(!loading && !selected.isEmpty());
    ui->pBtnLoadDec->setEnabled(!loading && !selected.isEmpty());
}

void schedule::load(int kdec)
{
    if (SLEEP || selected.isEmpty())
        return;
    DebugLOG("sch::onpush sleep ON");
    {
        setLoading(true);
        const auto over = qScopeGuard([this] {
            deleteRecord(&m_record);
            setLoading(false);
            DebugLOG("sch::onpush sleep OFF");
        });
        runGuarded("new LoadRec", [this, kdec] { loadChosen(kdec); });
    }
    emit AllRecsAdded();
}

void schedule::loadChosen(int kdec)
{
    ProgressScope shown(ui->progressBar);
    QList<int> segments = selected;
    std::sort(segments.begin(), segments.end());
    RecordingLoad loader(*m_map, m_directory.absolutePath());
    bool tellShortDays = true;
    loader.tellShortDay = [&](const QString& text) {
        tellShortDays = tellShortDays && tellShortDay(text);
        return tellShortDays;
    };
    for (int i = 0; i < segments.size() && !m_stopped; ++i) {
        loader.progress = [&](double share) {
            shown.show(100.0 * (i + share) / segments.size());
            return !m_stopped;
        };
        if (!loadSegment(&loader, segments.at(i), kdec))
            break;
    }
}

/// Loads one segment and hands the record on; false when the user has stopped the load.
bool schedule::loadSegment(RecordingLoad* loader, int segment, int kdec)
{
    if (segment >= m_map->segmentCount())
        return true;
    const Interval interval = intervalOf(segment);
    RecordingStretch stretch;
    stretch.channel = m_map->channels.at(m_map->bandOf(segment));
    stretch.start = interval.first;
    stretch.stop = interval.second;
    stretch.recordingStart = m_map->starts.at(segment);
    // The index does not know where a recording without an end marker ends.
    stretch.toEnd = !m_intervals.contains(segment) && m_map->kinds.at(segment) != mapStruct::finished;
    stretch.kdec = kdec;
    const QString times =
        stretch.start.toString(timeForm) + QLatin1String(" - ") + stretch.stop.toString(timeForm);
    DebugLOG(times.toUtf8().constData());
    showInfo(tr("Загружается канал %1: %2").arg(QString::number(stretch.channel), times));
    const auto outcome = loader->load(stretch, &m_record);
    for (const mapStruct::Message& message : loader->messages())
        tell(this, QMessageBox::Critical, message.title, message.text);
    if (outcome == RecordingLoad::Outcome::Stopped) {
        showInfo(tr("Загрузка остановлена."));
        return false;
    }
    if (outcome == RecordingLoad::Outcome::Failed) {
        showInfo(tr("Запись не загружена: %1").arg(times));
        return true;
    }
    showInfo(tr("Загружен канал %1: отсчетов %2").arg(stretch.channel).arg(m_record.n_cnt));
    emit NewRecLoaded(&m_record, 1, m_directory.absolutePath(), QString());
    emit TakeRec(&m_record);
    return true;
}

/// False when the user wants to hear no more of it.
bool schedule::tellShortDay(const QString& text)
{
    const auto pressed =
        tell(this, QMessageBox::Warning, tr("Загрузка записи"), text, QMessageBox::Ignore | QMessageBox::Ok,
            {{QMessageBox::Ignore, tr("Больше не показывать")}, {QMessageBox::Ok, tr("OK")}});
    return pressed != QMessageBox::Ignore;
}
