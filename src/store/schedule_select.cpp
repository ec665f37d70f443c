#include "store/schedule.h"

#include "base/debuglog.h"
#include "base/globals.h"
#include "plot/frgrsetdlg.h"
#include "plot/plaintooltip.h"
#include "prompt/prompt.h"
#include "store/core/mapstruct.h"
#include "store/core/recordingtime.h"
#include "store/myview.h"
#include "ui_schedule.h"

#include <QAction>
#include <QGraphicsSceneMouseEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QToolTip>

#include <algorithm>

namespace {

bool isControl(Qt::KeyboardModifiers modifiers)
{
    return modifiers & Qt::ControlModifier;
}

} // namespace

bool schedule::canBeChosen(int segment) const
{
    return segment >= 0 && segment < m_map->segmentCount() && m_map->kinds.at(segment) != mapStruct::noData;
}

void schedule::choose(int segment, bool add)
{
    if (!canBeChosen(segment)) {
        DebugLOG("Запись не выбрана"); // verbatim
        return;
    }
    QList<int> touched{segment};
    if (add && selected.contains(segment)) {
        selected.removeAll(segment);
        m_intervals.remove(segment);
    } else {
        if (!add) {
            touched += selected;
            selected.clear();
            m_intervals.clear();
        }
        selected << segment;
    }
    selectionChanged(touched);
}

void schedule::clearSelection()
{
    const QList<int> touched = selected;
    selected.clear();
    m_intervals.clear();
    selectionChanged(touched);
}

void schedule::chooseAll()
{
    QList<int> touched = selected;
    selected.clear();
    m_intervals.clear();
    for (int i = 0; i < m_map->segmentCount(); ++i) {
        if (canBeChosen(i))
            selected << i;
    }
    selectionChanged(touched += selected);
}

/// `area` is in pixels of the view.
void schedule::chooseArea(const QRect& area, bool add)
{
    QList<int> touched = selected;
    if (!add) {
        selected.clear();
        m_intervals.clear();
    }
    const QRectF inScene = ui->graphicsView->mapToScene(area).boundingRect();
    for (const int segment : chart::segmentsIn(bands, inScene)) {
        if (canBeChosen(segment) && !selected.contains(segment))
            selected << segment;
    }
    selectionChanged(touched += selected);
}

schedule::Interval schedule::intervalOf(int segment) const
{
    return m_intervals.value(segment, {m_map->starts.at(segment), m_map->stops.at(segment)});
}

void schedule::selectionChanged(const QList<int>& touched)
{
    marks.clear();
    for (const int segment : qAsConst(selected)) {
        const Interval interval = intervalOf(segment);
        marks << chart::markOf(m_map->bandOf(segment), date1, interval.first, interval.second);
    }
    if (!touched.isEmpty() && ui->tableWidget->rowCount() == m_map->segmentCount()) {
        for (const int row : touched)
            colourRow(row);
    }
    m_scene.update();
    const bool some = !selected.isEmpty();
    ui->pushButtonLoad->setEnabled(some && AcceptScheduleEvents); // which a load clears
    ui->pBtnLoadDec->setEnabled(some && AcceptScheduleEvents);
    if (!some) {
        showInfo(tr("Выберите записи мышью; Ctrl добавляет к выбранным, протягивание выбирает несколько."));
        return;
    }
    const Interval last = intervalOf(selected.last());
    const QString form = QStringLiteral("dd.MM.yy hh:mm:ss");
    showInfo(tr("Выбрано записей: %1. Последняя: канал %2, %3 - %4")
                 .arg(QString::number(selected.size()),
                     QString::number(getChbyInd(m_map->bandOf(selected.last())) + 1),
                     last.first.toString(form), last.second.toString(form)));
}

void schedule::showInfo(const QString& text)
{
    ui->infoLbl->setText(text);
    emit NewInfo(text);
}

void schedule::tableWidgetClicked(int row)
{
    if (row < 0)
        clearSelection();
    else
        choose(row, isControl(QGuiApplication::keyboardModifiers()));
}

bool schedule::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == &m_scene)
        return AcceptScheduleEvents && sceneEvent(event);
    if (watched == ui->tableWidget->viewport() && event->type() == QEvent::MouseButtonPress) {
        const auto* const press = static_cast<QMouseEvent*>(event);
        const int row = ui->tableWidget->rowAt(press->y());
        if (row < 0)
            tableWidgetClicked(-1);
        else if (press->button() == Qt::RightButton && canBeChosen(row))
            openMenu(press->globalPos(), row, m_map->starts.at(row));
    } else if (watched == ui->tableWidget && event->type() == QEvent::KeyPress) {
        const auto* const key = static_cast<QKeyEvent*>(event);
        if (key->matches(QKeySequence::SelectAll))
            chooseAll();
        else if (key->key() == Qt::Key_Space)
            choose(ui->tableWidget->currentRow(), true);
        else
            return false;
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

bool schedule::sceneEvent(QEvent* event)
{
    if (event->type() == QEvent::GraphicsSceneMouseMove)
        hover(static_cast<QGraphicsSceneMouseEvent*>(event));
    else if (event->type() == QEvent::GraphicsSceneMousePress)
        press(static_cast<QGraphicsSceneMouseEvent*>(event));
    return false;
}

chart::Place schedule::placeAt(const QPointF& point) const
{
    return chart::placeAt(bands, point, ScheduleItem::leastWidth * ui->graphicsView->secondsPerPixel());
}

QString schedule::toolTipAt(const chart::Place& place) const
{
    if (place.band < 0)
        return QString();
    QString text = tr("день") + QLatin1Char(' ') + QString::number(place.day) + QLatin1String(", ")
        + tr("Канал") + QLatin1Char(' ') + QString::number(getChbyInd(place.band) + 1);
    if (place.segment < 0)
        return text;
    const int first = m_map->firstOfChannel.at(place.band);
    const int total = m_map->firstOfChannel.at(place.band + 1) - first;
    const QString form = QStringLiteral(" dd.MM.yy hh:mm:ss");
    text += QLatin1Char('\n') + tr(" Запись №").trimmed() + QString::number(place.segment - first + 1)
        + tr(" (из") + QLatin1Char(' ') + QString::number(total) + QLatin1Char(')');
    text += QLatin1Char('\n') + chart::nameOf(*m_map, place.segment) + QLatin1String(", ")
        + kindText(m_map->kinds.at(place.segment));
    return text + QLatin1Char('\n') + m_map->starts.at(place.segment).toString(form).trimmed()
        + QLatin1String(" -") + m_map->stops.at(place.segment).toString(form);
}

void schedule::hover(QGraphicsSceneMouseEvent* event)
{
    if (event->buttons() != Qt::NoButton)
        return;
    const QString text = toolTipAt(placeAt(event->scenePos()));
    // Several lines, as they stand.
    const QString rich =
        text.isEmpty() ? text : plainToolTip(text).replace(QLatin1Char('\n'), QLatin1String("<br>"));
    QToolTip::showText(event->screenPos(), rich, ui->graphicsView->viewport());
}

void schedule::press(QGraphicsSceneMouseEvent* event)
{
    const chart::Place place = placeAt(event->scenePos());
    if (event->button() == Qt::LeftButton)
        choose(place.segment, isControl(event->modifiers()));
    else if (event->button() == Qt::RightButton && canBeChosen(place.segment))
        openMenu(event->screenPos(), place.segment, chart::timeAt(date1, event->scenePos().x()));
}

void schedule::openMenu(const QPoint& where, int segment, const QDateTime& time)
{
    m_menuSegment = segment;
    m_menuTime = time;
    auto* const menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addAction(m_intervalAction);
    menu->popup(where);
}

/// The interval begins where the menu was opened.
void schedule::SetIntervalForRec()
{
    const int segment = m_menuSegment;
    if (SLEEP || !canBeChosen(segment))
        return;
    double length = 0.0; // s
    FrGrSetDlg dialog(&length, this);
    prompt::run(dialog);
    if (length <= 0.0 || !canBeChosen(segment))
        return;
    const QDateTime begin = m_map->starts.at(segment);
    const QDateTime end = m_map->stops.at(segment);
    // A short one is hit also from beside it.
    const bool inside = secondsBetween(begin, m_menuTime) > 0.0 && secondsBetween(m_menuTime, end) > 0.0;
    const QDateTime from = inside ? m_menuTime : begin;
    QDateTime to = plusSeconds(from, qint64(length));
    // A recording that goes on may reach farther than the index knows.
    if (m_map->kinds.at(segment) != mapStruct::current && secondsBetween(end, to) > 0.0)
        to = end;
    if (!selected.contains(segment))
        choose(segment, false);
    m_intervals.insert(segment, {from, to});
    selectionChanged({});
}
