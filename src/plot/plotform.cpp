#include "plot/plotform.h"

#include "plot/multiaxisplot.h"
#include "plot/plaintooltip.h"
#include "plot/plotboxes.h"
#include "plot/plotlegend.h"
#include "plot/plotslot.h"

#include <QAction>
#include <QActionGroup>
#include <QCloseEvent>
#include <QEvent>
#include <QIcon>
#include <QKeySequence>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QVBoxLayout>
#include <qwt_interval_symbol.h>
#include <qwt_plot_canvas.h>
#include <qwt_plot_grid.h>
#include <qwt_plot_marker.h>
#include <qwt_text_label.h>

#include <array>

namespace {

constexpr int menuHeight = 30;
constexpr int statusMargin = 2;
constexpr int barWidth = 8;
/// Pixels between the plot and the edges of the window.
constexpr int plotMargin = 6;

QColor penColor(int slot)
{
    static const std::array<QColor, 8> colors = {QColor(5, 10, 150), QColor(Qt::red), QColor(Qt::green),
        QColor(Qt::magenta), QColor(255, 128, 0), QColor(Qt::darkGreen), QColor(Qt::cyan),
        QColor(0, 100, 255)};
    return colors[size_t(slot) % colors.size()];
}

std::unique_ptr<QwtPlotMarker> newMarker(const QString& label, bool vertical)
{
    auto marker = std::make_unique<QwtPlotMarker>();
    marker->setLineStyle(vertical ? QwtPlotMarker::VLine : QwtPlotMarker::HLine);
    marker->setLinePen(QColor(171, 35, 46), 1.0, Qt::SolidLine);
    marker->setLabel(QwtText(label, QwtText::PlainText));
    marker->setLabelAlignment(vertical ? Qt::AlignTop | Qt::AlignRight : Qt::AlignRight | Qt::AlignTop);
    marker->setVisible(false);
    return marker;
}

} // namespace

PlotForm::PlotForm(int* number, QWidget* parent)
    : QWidget(parent)
    , m_number(number)
{
    setWindowIcon(QIcon(QStringLiteral(":/bmp/bmp/B_FR_DIF.BMP")));
    setBaseSize(400, 400);
    setMinimumSize(475, 400);
    resize(493, 400);

    m_menuBar = new QMenuBar(this);
    m_menuBar->setNativeMenuBar(false);
    m_menuBar->setFixedHeight(menuHeight);
    m_statusLabel = new QLabel(this);
    m_statusLabel->setObjectName(QStringLiteral("statusLabel"));
    m_statusLabel->setTextFormat(Qt::PlainText);
    m_statusLabel->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_statusLabel->setMargin(statusMargin);
    m_statusLabel->setFont(QFont(QStringLiteral("Arial"), 10));

    buildPlot();
    buildMarkers();
    buildStrip();
    buildDialogs();
    buildNavigation();
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(0);
    rows->setMenuBar(m_menuBar);
    auto* frame = new QHBoxLayout;
    frame->setContentsMargins(plotMargin, 0, plotMargin, plotMargin);
    frame->addWidget(m_plot);
    rows->addLayout(frame, 1);

    buildMenus();
    connect(m_plot, &MultiAxisPlot::legendChecked, this, &PlotForm::showCurve);
    setMarkerMode();
    PlotForm::retranslate();
}

PlotForm::~PlotForm() = default;

void PlotForm::buildPlot()
{
    m_plot = new MultiAxisPlot(this);
    m_plot->setObjectName(QStringLiteral("plot"));
    auto* canvas = qobject_cast<QwtPlotCanvas*>(m_plot->canvas());
    canvas->setFrameStyle(QFrame::Box | QFrame::Plain);
    canvas->setLineWidth(1);
    m_plot->setCanvasBackground(Qt::white);
    m_plot->titleLabel()->setFont(QFont(QStringLiteral("Arial"), 12, QFont::Normal));
    m_plot->setAxisFont(QFont(QStringLiteral("Arial"), 10));
    auto* legend = new PlotLegend;
    legend->setFont(QFont(QStringLiteral("Arial"), 10));
    m_plot->insertLegend(legend, QwtPlot::TopLegend, legendShare);
    m_plot->setAxisAutoScale(MultiAxisPlot::bottomAxis);

    m_grid = std::make_unique<QwtPlotGrid>();
    m_grid->enableXMin(true);
    m_grid->enableYMin(true);
    m_grid->setMajorPen(Qt::black, 0.0, Qt::DotLine);
    m_grid->setMinorPen(Qt::gray, 0.0, Qt::DotLine);
    m_grid->attach(m_plot);

    for (int i = 0; i < curveLimit; ++i) {
        auto slot = std::make_unique<Slot>();
        slot->pen = QPen(penColor(i), 1.0);
        slot->curve.setPen(slot->pen);
        slot->curve.setRenderHint(QwtPlotItem::RenderAntialiased);
        slot->curve.setLegendIconSize(QSize(24, 10));
        slot->bars.setStyle(QwtPlotIntervalCurve::NoCurve);
        auto* symbol = new QwtIntervalSymbol(QwtIntervalSymbol::Bar);
        symbol->setWidth(barWidth);
        symbol->setPen(slot->pen);
        slot->bars.setSymbol(symbol);
        slot->bars.setRenderHint(QwtPlotItem::RenderAntialiased, false);
        slot->bars.setItemAttribute(QwtPlotItem::Legend, false);
        slot->bars.setVisible(false);
        m_slots[size_t(i)] = std::move(slot);
    }

    m_boxes = new PlotBoxes(m_plot->canvas());
    m_boxes->setObstacles([this] { return PlotBoxes::Obstacles{visibleLines(), markerNames()}; });
}

void PlotForm::buildMarkers()
{
    m_x1 = newMarker(QStringLiteral("X1"), true);
    m_y1 = newMarker(QStringLiteral("Y1"), false);
    m_x2 = newMarker(QStringLiteral("X2"), true);
    m_y2 = newMarker(QStringLiteral("Y2"), false);
    for (QwtPlotMarker* marker : {m_x1.get(), m_y1.get(), m_x2.get(), m_y2.get()})
        m_plot->attach(marker, currentAxis);
}

QAction* PlotForm::addCommand(
    QMenu* menu, const char* icon, void (PlotForm::*slot)(), const char* text, const char* tip)
{
    QAction* action = menu->addAction(QIcon(QString::fromLatin1(icon)), QString());
    connect(action, &QAction::triggered, this, slot);
    m_commands.append({action, text, tip});
    return action;
}

void PlotForm::buildMenus()
{
    m_optionsMenu = m_menuBar->addMenu(QString());
    m_toolsMenu = m_menuBar->addMenu(QString());
    m_processMenu = m_menuBar->addMenu(QString());
    QAction* save = addCommand(m_optionsMenu, ":/bmp/bmp/SAVE.png", &PlotForm::saveImage,
        QT_TR_NOOP("Сохранить"), QT_TR_NOOP("Записать изображение графика в файл"));
    QAction* print = addCommand(m_optionsMenu, ":/bmp/bmp/PRT-UP.BMP", &PlotForm::printImage,
        QT_TR_NOOP("Печать"), QT_TR_NOOP("Напечатать график"));
    addCommand(m_optionsMenu, "", &PlotForm::previewPrint, QT_TR_NOOP("Предварительный просмотр"),
        QT_TR_NOOP("Показать страницу такой, какой она будет напечатана"));
    QAction* copy = addCommand(m_optionsMenu, "", &PlotForm::copyImage, QT_TR_NOOP("Копировать изображение"),
        QT_TR_NOOP("Поместить изображение графика в буфер обмена"));
    addCommand(m_optionsMenu, ":/bmp/bmp/properties.png", &PlotForm::openProperty,
        QT_TR_NOOP("Свойства графика"), QT_TR_NOOP("Изменить вид линий и маркеров и границы осей"));
    addCommand(m_optionsMenu, ":/bmp/bmp/comment.png", &PlotForm::showCommentDialog,
        QT_TR_NOOP("Вставить комментарий"), QT_TR_NOOP("Поместить на график текст"));
    addCommand(m_optionsMenu, "", &PlotForm::exportASCII, QT_TR_NOOP("Экспорт в ASCII"),
        QT_TR_NOOP("Записать показанные точки таблицей в текстовый файл"));
    save->setShortcut(QKeySequence::Save);
    print->setShortcut(QKeySequence::Print);
    copy->setShortcut(QKeySequence::Copy);
    buildTools();
    m_boundsAction = addCommand(m_processMenu, ":/bmp/bmp/Cut.png", &PlotForm::setOtmetMode,
        QT_TR_NOOP("Отметить границы"), QT_TR_NOOP("Отметить двумя нажатиями начало и конец участка"));
    m_newRecordAction =
        addCommand(m_processMenu, "", &PlotForm::saveNewRec, QT_TR_NOOP("Сохранить как новую запись"),
            QT_TR_NOOP("Вырезать отмеченный участок показанных записей в новые записи"));
    connect(m_processMenu, &QMenu::aboutToShow, this,
        [this] { m_newRecordAction->setEnabled(selectionState == 2 && curveCount > 0); });
    for (QAction* action : {m_markerAction, m_zoomAction, m_boundsAction})
        action->setCheckable(true);
    for (QMenu* menu : {m_optionsMenu, m_toolsMenu, m_processMenu, m_axisMenu})
        menu->setToolTipsVisible(true);
}

void PlotForm::buildTools()
{
    m_markerAction = addCommand(m_toolsMenu, "", &PlotForm::setMarkerMode, QT_TR_NOOP("Маркер"),
        QT_TR_NOOP("Нажмите и тяните по графику, чтобы измерить расстояние между точками"));
    m_zoomAction = addCommand(m_toolsMenu, "", &PlotForm::setZoomMode, QT_TR_NOOP("Масштаб"),
        QT_TR_NOOP("Обведите область, чтобы увеличить её; правая кнопка возвращает назад"));
    m_periodAction = addCommand(m_toolsMenu, "", &PlotForm::showZoomDialog,
        QT_TR_NOOP("Задать интервал времени"), QT_TR_NOOP("Показать данные между двумя моментами времени"));
    QAction* whole = addCommand(m_toolsMenu, "", &PlotForm::showWhole, QT_TR_NOOP("Показать всё"),
        QT_TR_NOOP("Отменить все изменения масштаба (двойное нажатие на графике)"));
    QAction* undo = addCommand(m_toolsMenu, "", &PlotForm::undoZoom, QT_TR_NOOP("Предыдущий масштаб"),
        QT_TR_NOOP("Отменить последнее изменение масштаба"));
    whole->setShortcut(Qt::CTRL + Qt::Key_0);
    undo->setShortcut(Qt::Key_Backspace);

    m_axisMenu = m_toolsMenu->addMenu(QString());
    m_axisGroup = new QActionGroup(this);
    m_axisGroup->setExclusive(true);
    for (int i = 0; i < MultiAxisPlot::yAxisCount; ++i) {
        QAction* action = m_axisMenu->addAction(QString());
        action->setCheckable(true);
        m_axisGroup->addAction(action);
    }
    m_axisGroup->actions().first()->setChecked(true);
    connect(m_axisGroup, &QActionGroup::triggered, this, &PlotForm::CurAxisChenged);
    m_toolsMenu->installEventFilter(this);
    SetAxisNum(axisCount);
}

void PlotForm::retranslate()
{
    m_optionsMenu->setTitle(tr("О&пции"));
    m_toolsMenu->setTitle(tr("&Инструменты"));
    m_processMenu->setTitle(tr("О&бработка"));
    m_axisMenu->setTitle(tr("Ось"));
    for (const Command& command : qAsConst(m_commands)) {
        command.action->setText(tr(command.text));
        command.action->setToolTip(tr(command.tip));
    }
    const QList<QAction*> axes = m_axisGroup->actions();
    for (int i = 0; i < axes.size(); ++i)
        axes[i]->setText(tr("Ось #") + QString::number(i + 1));
    placeStatus();
    for (QAction* axis : axes)
        axis->setToolTip(tr("Ось, по которой работают маркеры и масштаб"));
    if (m_title)
        setWindowTitle(m_title());
    if (m_statusSource)
        setStatusSource(m_statusSource);
    for (const auto& [axis, text] : m_axisTitles)
        m_plot->setAxisTitle(axis, text());
    for (int i = 0; i < curveCount; ++i)
        setCurveTitle(i, m_slots[size_t(i)]->curve.title().text());
    if (hasCurveTexts())
        showTextBox(m_plainHeads);
}

void PlotForm::setTitleSource(Text text)
{
    m_title = std::move(text);
    setWindowTitle(m_title());
}

void PlotForm::setAxisTitleSource(int axis, Text text)
{
    m_plot->setAxisTitle(axis, text());
    m_axisTitles[axis] = std::move(text);
}

void PlotForm::setPlotTitle(const QString& title)
{
    QwtText text(title, QwtText::PlainText);
    text.setRenderFlags(Qt::AlignCenter | Qt::TextWordWrap);
    m_plot->setTitle(text);
}

void PlotForm::setStatusText(const QString& text)
{
    m_status = text;
    m_statusSource = nullptr;
    elideStatus();
}

void PlotForm::setStatusSource(Text text)
{
    setStatusText(text());
    m_statusSource = std::move(text);
}

/// The status stands in the row of the menus, where it takes no height from the plot; in a window too narrow
/// for both it has a row of its own, whatever it says, so that the plot does not jump.
void PlotForm::placeStatus()
{
    const int menus = m_menuBar->sizeHint().width();
    const QFontMetrics metrics = m_statusLabel->fontMetrics();
    const int longest =
        metrics.horizontalAdvance(MarkerTexts().difference(-86400.0, -1e-10)) + 4 * statusMargin;
    const bool beside = width() - menus >= longest;
    const int height = metrics.height() + 2 * statusMargin;
    layout()->setContentsMargins(0, beside ? 0 : height, 0, 0);
    m_statusLabel->setGeometry(
        beside ? QRect(menus, 0, width() - menus, menuHeight) : QRect(0, menuHeight, width(), height));
    m_statusLabel->raise();
    elideStatus();
}

void PlotForm::elideStatus()
{
    const QString& text = m_status.isEmpty() ? m_hover : m_status;
    const int room = m_statusLabel->width() - 2 * m_statusLabel->margin();
    const QString shown = m_statusLabel->fontMetrics().elidedText(text, Qt::ElideMiddle, room);
    m_statusLabel->setText(shown);
    m_statusLabel->setToolTip(shown == text ? QString() : plainToolTip(text));
}

void PlotForm::replot()
{
    m_plot->replot();
    m_boxes->place();
}

void PlotForm::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    placeStatus();
    layout()->activate();
}

void PlotForm::closeEvent(QCloseEvent* event)
{
    emit IsClosing(this);
    event->accept();
}

void PlotForm::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        retranslate();
        replot();
    }
    if (event->type() == QEvent::FontChange && layout())
        placeStatus();
    QWidget::changeEvent(event);
}

bool PlotForm::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_toolsMenu && event->type() == QEvent::Show) {
        m_axisMenu->menuAction()->setVisible(m_usedAxes.size() > 1);
        m_periodAction->setVisible(hasTimeAxis());
    }
    if (watched == m_plot->canvas() && event->type() == QEvent::Leave)
        setHover(QString());
    return QWidget::eventFilter(watched, event);
}
