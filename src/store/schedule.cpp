#include "store/schedule.h"

#include "base/globals.h"
#include "store/core/mapstruct.h"
#include "store/kdecloaddlg.h"
#include "store/myview.h"
#include "ui_schedule.h"

#include <QAction>
#include <QEvent>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace {

enum Column { Channel, Start, Stop, Signals, State };

const QString dateForm = QStringLiteral("dd/MM hh:mm:ss");
const QString timeForm = QStringLiteral("dd.MM.yyyy hh:mm:ss");

} // namespace

schedule::schedule(QWidget* parent, mapStruct* map)
    : QWidget(parent)
    , ui(std::make_unique<Ui_schedule>())
    , m_map(map)
    , m_intervalAction(new QAction(this))
{
    ui->setupUi(this);
    m_kdecDialog = std::make_unique<KdecLoadDlg>(this);
    m_kdecDialog->setWindowModality(Qt::WindowModal);
    KdecSelForm = m_kdecDialog.get();
    connect(m_kdecDialog.get(), &KdecLoadDlg::load, this, &schedule::load);
    connect(m_intervalAction, &QAction::triggered, this, &schedule::SetIntervalForRec);
    m_scene.setItemIndexMethod(QGraphicsScene::NoIndex);
    m_scene.installEventFilter(this);
    ui->graphicsView->setData(this);
    ui->graphicsView->setScene(&m_scene);
    ui->tableWidget->installEventFilter(this);
    ui->tableWidget->viewport()->installEventFilter(this);
    connect(ui->graphicsView->horizontalScrollBar(), &QScrollBar::valueChanged, this, &schedule::val);
    connect(ui->graphicsView, &MyView::viewChanged, this, [this] { val(0); });
    connect(ui->graphicsView, &MyView::allWanted, this, [this] {
        if (AcceptScheduleEvents)
            chooseAll();
    });
    connect(ui->graphicsView, &QGraphicsView::rubberBandChanged, this, [this](const QRect& band) {
        if (band.isNull() && !m_band.isNull() && AcceptScheduleEvents)
            chooseArea(m_band, QGuiApplication::keyboardModifiers() & Qt::ControlModifier);
        m_band = band;
    });
    connect(ui->tableWidget, &QTableWidget::cellClicked, this, [this](int row) { tableWidgetClicked(row); });
    retranslate();
}

schedule::~schedule()
{
    m_scene.removeEventFilter(this);
    ui->graphicsView->setScene(nullptr);
    if (KdecSelForm == m_kdecDialog.get())
        KdecSelForm = nullptr;
}

void schedule::takeIndex(const QDate& first, const QDate& last, int count, const QDir& directory)
{
    date1 = first;
    date2 = last;
    nChan = count;
    m_directory = directory;
    const auto gone = [this](int segment) { return segment >= m_map->segmentCount(); };
    selected.erase(std::remove_if(selected.begin(), selected.end(), gone), selected.end());
}

int schedule::refreshSch(QDate first, QDate last, QByteArray, int count, QDir directory)
{
    if (SLEEP)
        return 1;
    takeIndex(first, last, count, directory);
    ui->views->setCurrentWidget(ui->chartPage);
    AcceptScheduleEvents = true;
    m_scene.clear();
    bands = chart::layOut(*m_map, date1, date2);
    widthX = bands.width;
    heightY = bands.height;
    rects.clear();
    for (const int block : qAsConst(bands.blockOfSegment))
        rects << bands.blocks.at(block).rect;
    buildTexts();
    m_scene.addItem(new ScheduleItem(*this));
    m_scene.setSceneRect(0.0, 0.0, widthX, heightY);
    selectionChanged({});
    ui->graphicsView->dataChanged();
    ui->graphicsView->fitChart();
    return 0;
}

void schedule::buildTexts()
{
    labels.clear();
    for (int i = 0; i < rects.size(); ++i)
        labels << ScheduleLabel{chart::nameOf(*m_map, i), rects.at(i).topLeft()};
    chanLabels.clear();
    for (int band = 0; band < bands.count(); ++band) {
        const int segments = m_map->firstOfChannel.at(band + 1) - m_map->firstOfChannel.at(band);
        const QString text = tr("Канал") + QLatin1Char(' ') + QString::number(getChbyInd(band) + 1)
            + QLatin1Char('\n') + tr(" число записей").trimmed() + QLatin1Char(' ')
            + QString::number(segments);
        chanLabels << ScheduleLabel{text, QPointF(0.0, band * chart::bandStep)};
    }
}

int schedule::refreshTab(QDate first, QDate last, QByteArray, int count, QDir directory)
{
    if (SLEEP)
        return 1;
    takeIndex(first, last, count, directory);
    ui->views->setCurrentWidget(ui->tableWidget);
    ui->tableWidget->setRowCount(0);
    ui->tableWidget->setRowCount(m_map->segmentCount());
    for (int row = 0; row < m_map->segmentCount(); ++row)
        fillRow(row);
    for (const int segment : qAsConst(selected))
        colourRow(segment);
    ui->tableWidget->resizeColumnsToContents();
    selectionChanged({});
    return 0;
}

void schedule::fillRow(int row)
{
    const auto put = [this, row](Column column, const QString& text, Qt::Alignment alignment) {
        auto* const item = new QTableWidgetItem(text);
        item->setTextAlignment(int(alignment));
        if (!canBeChosen(row))
            item->setForeground(palette().color(QPalette::Disabled, QPalette::Text));
        ui->tableWidget->setItem(row, column, item);
    };
    const char kind = m_map->kinds.at(row);
    put(Channel, QString::number(getChbyInd(m_map->bandOf(row)) + 1), Qt::AlignCenter);
    put(Start, m_map->starts.at(row).toString(timeForm), Qt::AlignCenter);
    put(Stop, m_map->stops.at(row).toString(timeForm), Qt::AlignCenter);
    put(Signals, chart::nameOf(*m_map, row), Qt::AlignLeft | Qt::AlignVCenter);
    put(State, kindText(kind), Qt::AlignLeft | Qt::AlignVCenter);
}

void schedule::colourRow(int row)
{
    if (row >= ui->tableWidget->rowCount())
        return;
    const bool chosen = selected.contains(row);
    for (int column = 0; column < ui->tableWidget->columnCount(); ++column) {
        QTableWidgetItem* const item = ui->tableWidget->item(row, column);
        item->setBackground(chosen ? QBrush(scheduleColors::chosenRow) : QBrush());
        item->setForeground(chosen ? QBrush(Qt::white) : QBrush());
    }
}

void schedule::showSchedule(QDate first, QDate last, QByteArray channels, int count, QDir directory)
{
    if (refreshSch(first, last, channels, count, directory) != 0)
        return;
    shown = true;
    show();
    ui->graphicsView->setFocus();
    emit TableIsShown(false);
}

void schedule::showTable(QDate first, QDate last, QByteArray channels, int count, QDir directory)
{
    if (refreshTab(first, last, channels, count, directory) != 0)
        return;
    shown = true;
    show();
    ui->tableWidget->setFocus();
    emit TableIsShown(true);
}

int schedule::getChbyInd(int i) const
{
    return m_map->channels.value(i, 0) - 1;
}

void schedule::val(int)
{
    if (!date1.isValid())
        return;
    const auto [left, right] = ui->graphicsView->visibleSeconds();
    ui->date1Lbl->setText(chart::timeAt(date1, left).toString(dateForm));
    // The last second in sight, so that the whole chart ends at 23:59:59.
    ui->date2Lbl->setText(chart::timeAt(date1, std::max(left, std::round(right) - 1.0)).toString(dateForm));
}

void schedule::setNewSize(QSize size)
{
    resize(size);
}

void schedule::wheelEvent(QWheelEvent* event)
{
    const int delta = event->angleDelta().y();
    if (!AcceptScheduleEvents || delta == 0 || ui->views->currentWidget() != ui->chartPage) {
        event->ignore();
        return;
    }
    const QWidget* const canvas = ui->graphicsView->viewport();
    const int x = canvas->mapFrom(this, event->position().toPoint()).x();
    ui->graphicsView->zoom(chart::zoomFactor(delta), std::clamp(x, 0, canvas->width()));
    event->accept();
}

QString schedule::kindText(char kind) const
{
    switch (kind) {
    case mapStruct::finished:
        return tr("запись завершена");
    case mapStruct::current:
        return tr("запись продолжается");
    case mapStruct::cutOff:
        return tr("запись прервана");
    default:
        return tr("нет файла");
    }
}

void schedule::retranslate()
{
    m_intervalAction->setText(tr("Задать интервал"));
    const auto entry = [](const QColor& colour, const QString& text) {
        return QStringLiteral("<span style='color:%1'>&#9632;</span>&nbsp;%2")
            .arg(colour.name(), text.toHtmlEscaped().replace(QLatin1Char(' '), QLatin1String("&nbsp;")));
    };
    QStringList entries;
    for (const char kind : {mapStruct::finished, mapStruct::current, mapStruct::cutOff, mapStruct::noData})
        entries << entry(scheduleColors::ofKind(kind), kindText(kind));
    entries << entry(scheduleColors::nothing, tr("нет записей"));
    entries << entry(scheduleColors::mark, tr("выбрано для загрузки"));
    ui->legendLbl->setText(entries.join(QStringLiteral("&nbsp;&nbsp; ")));
    ui->graphicsView->setToolTip(QString());
    ui->tableWidget->setToolTip(tr("Нажмите на строку, чтобы выбрать запись; Ctrl добавляет к выбранным"));
}

void schedule::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    ui->retranslateUi(this);
    retranslate();
    buildTexts();
    if (date1.isValid())
        ui->graphicsView->dataChanged();
    for (int row = 0; row < ui->tableWidget->rowCount() && row < m_map->segmentCount(); ++row)
        ui->tableWidget->item(row, State)->setText(kindText(m_map->kinds.at(row)));
    selectionChanged({});
}
