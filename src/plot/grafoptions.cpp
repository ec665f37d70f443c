#include "plot/grafoptions.h"

#include "plot/core/limittext.h"
#include "prompt/prompt.h"
#include "ui_grafoptions.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QPixmap>
#include <QSignalBlocker>
#include <qwt_plot_curve.h>
#include <qwt_symbol.h>

#include <algorithm>
#include <array>

namespace {

constexpr int widest = 10; // px
constexpr int smallestMarker = 3; // px
constexpr int largestMarker = 20; // px

struct MarkerEntry {
    const char* icon;
    const char* name;
};

/// In the order of QwtSymbol::Style.
const std::array<MarkerEntry, 15> markers = {{
    {":/bmp/bmp/markers/ellipse.bmp", QT_TRANSLATE_NOOP("GrafOptions", "Круг")},
    {":/bmp/bmp/markers/cube.bmp", QT_TRANSLATE_NOOP("GrafOptions", "Квадрат")},
    {":/bmp/bmp/markers/romb.bmp", QT_TRANSLATE_NOOP("GrafOptions", "Ромб")},
    {":/bmp/bmp/markers/triangle1.bmp", QT_TRANSLATE_NOOP("GrafOptions", "Треугольник")},
    {":/bmp/bmp/markers/triangle2.bmp", QT_TRANSLATE_NOOP("GrafOptions", "Треугольник вниз")},
    {":/bmp/bmp/markers/triangle3.bmp", QT_TRANSLATE_NOOP("GrafOptions", "Треугольник вверх")},
    {":/bmp/bmp/markers/triangle4.bmp", QT_TRANSLATE_NOOP("GrafOptions", "Треугольник влево")},
    {":/bmp/bmp/markers/triangle5.bmp", QT_TRANSLATE_NOOP("GrafOptions", "Треугольник вправо")},
    {":/bmp/bmp/markers/cross.bmp", QT_TRANSLATE_NOOP("GrafOptions", "Крест")},
    {":/bmp/bmp/markers/xcross.bmp", QT_TRANSLATE_NOOP("GrafOptions", "Косой крест")},
    {":/bmp/bmp/markers/minus.bmp", QT_TRANSLATE_NOOP("GrafOptions", "Горизонтальная черта")},
    {":/bmp/bmp/markers/vline.bmp", QT_TRANSLATE_NOOP("GrafOptions", "Вертикальная черта")},
    {":/bmp/bmp/markers/star.bmp", QT_TRANSLATE_NOOP("GrafOptions", "Звезда")},
    {":/bmp/bmp/markers/vstar.bmp", QT_TRANSLATE_NOOP("GrafOptions", "Звезда, 6 лучей")},
    {":/bmp/bmp/markers/hex.bmp", QT_TRANSLATE_NOOP("GrafOptions", "Шестиугольник")},
}};

/// Keeps the choice while a list is filled anew.
void refill(QComboBox* box, const QStringList& texts)
{
    const QSignalBlocker quiet(box);
    const int chosen = std::max(0, box->currentIndex());
    box->clear();
    box->addItems(texts);
    box->setCurrentIndex(std::min(chosen, box->count() - 1));
}

QStringList numbers(int from, int to)
{
    QStringList texts;
    for (int i = from; i <= to; ++i)
        texts << QString::number(i);
    return texts;
}

} // namespace

GrafOptions::GrafOptions(int curveCount, QWidget* parent)
    : QWidget(parent, Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint)
    , curves(size_t(std::max(0, curveCount)))
    , ui(std::make_unique<Ui_GrafOptions>())
{
    ui->setupUi(this);
    setWindowModality(Qt::ApplicationModal);
    ui->widthBox->addItems(numbers(1, widest));
    ui->sizeBox->addItems(numbers(smallestMarker, largestMarker));
    fillLists();
    connect(ui->markerChkBox, &QCheckBox::clicked, this, &GrafOptions::enableByChecks);
    connect(ui->resetBtn, &QPushButton::clicked, this, &GrafOptions::restore1);
    m_before = curves;
    loadCurve();
    showLimits();
}

GrafOptions::~GrafOptions() = default;

void GrafOptions::fillLists()
{
    QStringList names;
    for (const MarkerEntry& marker : markers)
        names << tr(marker.name);
    refill(ui->styleBox, names);
    for (size_t i = 0; i < markers.size(); ++i)
        ui->styleBox->setItemIcon(int(i), QIcon(QString::fromLatin1(markers[i].icon)));
    QStringList titles;
    for (int i = 0; i < ui->selLinecBox->count(); ++i)
        titles << tr("График") + ' ' + QString::number(i + 1);
    refill(ui->selLinecBox, titles);
}

void GrafOptions::takeLook(int index, const QwtPlotCurve& curve)
{
    if (!known(index))
        return;
    CurveOptions& options = curves[size_t(index)];
    options.lineWidth = std::clamp(qRound(curve.pen().widthF()) - 1, 0, widest - 1);
    options.showLine = curve.style() != QwtPlotCurve::NoCurve;
    options.color = curve.pen().color();
    options.title = curve.title().text();
    const QwtSymbol* symbol = curve.symbol();
    options.showMarker = symbol && symbol->style() != QwtSymbol::NoSymbol;
    if (options.showMarker) {
        options.markerStyle = std::clamp(int(symbol->style()), 0, int(markers.size()) - 1);
        options.markerSize = std::clamp(symbol->size().width(), smallestMarker, largestMarker);
    }
}

void GrafOptions::fillCurves(QwtPlotCurve** list, int count, int selected)
{
    count = list ? std::clamp(count, 0, int(curves.size())) : 0;
    QStringList titles;
    for (int i = 0; i < count; ++i) {
        if (list[i])
            takeLook(i, *list[i]);
        titles << tr("График") + ' ' + QString::number(i + 1);
    }
    refill(ui->selLinecBox, titles);
    selectedCurve = count ? std::clamp(selected, 0, count - 1) : -1;
    const QSignalBlocker quiet(ui->selLinecBox);
    ui->selLinecBox->setCurrentIndex(selectedCurve);
}

void GrafOptions::present()
{
    m_before = curves;
    loadCurve();
    showLimits();
    show();
    raise();
    activateWindow();
    ui->selLinecBox->setFocus();
}

void GrafOptions::myShow(QwtPlotCurve** list, int count, int selected)
{
    fillCurves(list, count, selected);
    present();
}

void GrafOptions::myShow_new(QwtPlotCurve** list, int count, int selected, QList<unsigned short>* axisNumbers,
    const QVector<AxisLimits>& limits, int axisEntry)
{
    m_axisNumbers = axisNumbers ? axisNumbers->mid(0, limits.size()) : QList<unsigned short>();
    m_limits = limits.mid(0, m_axisNumbers.size());
    QStringList names;
    for (const AxisLimits& axis : qAsConst(m_limits))
        names << axis.name;
    refill(ui->axNames_comboBox, names);
    ui->axNames_comboBox->setCurrentIndex(std::clamp(axisEntry, -1, names.size() - 1));
    fillCurves(list, count, selected);
    present();
}

void GrafOptions::Clear()
{
    curves.assign(curves.size(), CurveOptions());
    m_before = curves;
    selectedCurve = -1;
    showGrid = true;
    m_axisNumbers.clear();
    m_limits.clear();
    ui->axNames_comboBox->clear();
    const QSignalBlocker quiet(ui->selLinecBox);
    ui->selLinecBox->clear();
    setdt(QDateTime(), QDateTime());
    loadCurve();
    showLimits();
}

void GrafOptions::setdt(QDateTime from, QDateTime to)
{
    start = from;
    stop = to;
    m_timeGiven = false;
    ui->dateTimeEdit->setDateTime(from);
    ui->dateTimeEdit_2->setDateTime(to);
}

void GrafOptions::setPossible(bool time, bool means, bool adev)
{
    m_timePossible = time;
    m_meansPossible = means;
    m_adevPossible = adev;
    for (QWidget* field : {static_cast<QWidget*>(ui->timeLbl), static_cast<QWidget*>(ui->dashLbl),
             static_cast<QWidget*>(ui->dateTimeEdit), static_cast<QWidget*>(ui->dateTimeEdit_2)})
        field->setEnabled(time);
    enableByChecks();
}

int GrafOptions::chosenAxis() const
{
    const int entry = ui->axNames_comboBox->currentIndex();
    return entry >= 0 && entry < m_axisNumbers.size() ? m_axisNumbers.at(entry) : -1;
}

void GrafOptions::loadCurve()
{
    const CurveOptions options = known(selectedCurve) ? curves[size_t(selectedCurve)] : CurveOptions();
    ui->curveBox->setEnabled(known(selectedCurve));
    ui->delBtn->setEnabled(known(selectedCurve));
    ui->titleLE->setText(options.title);
    ui->titleLE->setCursorPosition(0);
    ui->widthBox->setCurrentIndex(options.lineWidth);
    ui->sizeBox->setCurrentIndex(options.markerSize - smallestMarker);
    ui->styleBox->setCurrentIndex(options.markerStyle);
    ui->lineChkBox->setChecked(options.showLine);
    ui->markerChkBox->setChecked(options.showMarker);
    ui->averChkBox->setChecked(options.showAverage);
    ui->trendChkBox->setChecked(options.showTrend);
    ui->subtractChkBox->setChecked(options.subtractAverage);
    ui->AVarChkBox->setChecked(options.showAdev);
    ui->gridChkBox->setChecked(showGrid);
    showColor();
    enableByChecks();
}

void GrafOptions::storeCurve()
{
    showGrid = ui->gridChkBox->isChecked();
    if (!known(selectedCurve))
        return;
    CurveOptions& options = curves[size_t(selectedCurve)];
    options.title = ui->titleLE->text();
    options.lineWidth = ui->widthBox->currentIndex();
    options.markerSize = ui->sizeBox->currentIndex() + smallestMarker;
    options.markerStyle = ui->styleBox->currentIndex();
    options.showLine = ui->lineChkBox->isChecked();
    options.showMarker = ui->markerChkBox->isChecked();
    options.showAverage = ui->averChkBox->isChecked();
    options.showTrend = ui->trendChkBox->isChecked();
    options.subtractAverage = ui->subtractChkBox->isChecked();
    options.showAdev = ui->AVarChkBox->isChecked();
    options.applied = true;
}

void GrafOptions::showColor()
{
    const QColor color = known(selectedCurve) ? curves[size_t(selectedCurve)].color : QColor(Qt::black);
    ui->colorBtn->setPalette(QPalette(color));
    // Not every style paints a button in the colour of its palette.
    QPixmap swatch(ui->colorBtn->iconSize());
    swatch.fill(color);
    ui->colorBtn->setIcon(swatch);
}

void GrafOptions::enableByChecks()
{
    const bool line = ui->lineChkBox->isChecked();
    const bool marker = ui->markerChkBox->isChecked();
    ui->widthLbl->setEnabled(line);
    ui->widthBox->setEnabled(line);
    ui->styleBox->setEnabled(marker);
    ui->sizeLbl->setEnabled(marker);
    ui->sizeBox->setEnabled(marker);
    ui->subtractChkBox->setEnabled(m_meansPossible);
    ui->AVarChkBox->setEnabled(m_adevPossible);
    ui->adevHintLbl->setEnabled(m_adevPossible && ui->AVarChkBox->isChecked());
}

void GrafOptions::on_selLinecBox_currentIndexChanged(int index)
{
    selectedCurve = known(index) ? index : -1;
    loadCurve();
}

void GrafOptions::on_ApplyBtn_clicked()
{
    storeCurve();
    m_before = curves;
    emit applyClick();
}

void GrafOptions::on_OkBtn_clicked()
{
    on_ApplyBtn_clicked();
    hide();
}

void GrafOptions::on_CancelBtn_clicked()
{
    curves = m_before;
    hide();
}

void GrafOptions::on_colorBtn_clicked()
{
    const QColor color = prompt::color(this, Qt::green); // always from green, whatever the curve's own colour
    if (!color.isValid() || !known(selectedCurve))
        return;
    curves[size_t(selectedCurve)].color = color;
    showColor();
}

void GrafOptions::on_delBtn_clicked()
{
    if (!known(selectedCurve))
        return;
    emit removeCurve(selectedCurve);
    m_before = curves;
    loadCurve();
}

void GrafOptions::on_lineChkBox_clicked()
{
    enableByChecks();
}

void GrafOptions::on_AVarChkBox_clicked()
{
    enableByChecks();
}

void GrafOptions::showLimits()
{
    const int entry = ui->axNames_comboBox->currentIndex();
    const bool any = entry >= 0 && entry < m_limits.size();
    for (QWidget* field : {static_cast<QWidget*>(ui->axNames_comboBox), static_cast<QWidget*>(ui->lowLim_LE),
             static_cast<QWidget*>(ui->highLim_LE)})
        field->setEnabled(any);
    ui->lowLim_LE->clear();
    ui->highLim_LE->clear();
    if (any) {
        const AxisLimits& axis = m_limits.at(entry);
        ui->lowLim_LE->setText(limitText(axis.low, axis.high - axis.low));
        ui->highLim_LE->setText(limitText(axis.high, axis.high - axis.low));
    }
    ui->lowLim_LE->setPalette(QPalette());
    ui->highLim_LE->setPalette(QPalette());
}

void GrafOptions::setLimits(const QVector<AxisLimits>& limits)
{
    if (limits.size() != m_limits.size())
        return;
    m_limits = limits;
    showLimits();
}

void GrafOptions::on_axNames_comboBox_activated(int index)
{
    ui->axNames_comboBox->setCurrentIndex(index);
    showLimits();
}

bool GrafOptions::readInto(QLineEdit* edit, double* limit)
{
    const bool good = readLimit(edit->text(), limit);
    QPalette colors;
    if (!good)
        colors.setColor(QPalette::Text, Qt::red);
    edit->setPalette(colors);
    return good;
}

int GrafOptions::checkAllLim()
{
    int count = 0;
    const int entry = ui->axNames_comboBox->currentIndex();
    m_valuesGiven = false;
    if (entry >= 0 && entry < m_limits.size()) {
        AxisLimits& axis = m_limits[entry];
        const bool low = readInto(ui->lowLim_LE, &axis.low);
        const bool high = readInto(ui->highLim_LE, &axis.high);
        count += int(low) + int(high);
        m_valuesGiven = (low || high) && axis.low != axis.high;
        if (axis.low == axis.high) {
            QPalette wrong;
            wrong.setColor(QPalette::Text, Qt::red);
            ui->highLim_LE->setPalette(wrong);
        }
    }
    const auto take = [&](const QDateTimeEdit* edit, QDateTime* bound) {
        if (!m_timePossible || !edit->dateTime().isValid())
            return;
        ++count;
        // The field shows the bound without its time zone.
        if (edit->date() == bound->date() && edit->time() == bound->time())
            return;
        m_timeGiven = true;
        *bound = edit->dateTime();
    };
    take(ui->dateTimeEdit, &start);
    take(ui->dateTimeEdit_2, &stop);
    return count;
}

void GrafOptions::on_pushButton_clicked()
{
    if (checkAllLim() < 1)
        return;
    const int entry = ui->axNames_comboBox->currentIndex();
    const AxisLimits axis = entry >= 0 && entry < m_limits.size() ? m_limits.at(entry) : AxisLimits();
    emit applyZoom(chosenAxis(), axis.low, axis.high, m_timePossible ? start : QDateTime(),
        m_timePossible ? stop : QDateTime(), m_valuesGiven);
}

void GrafOptions::on_dateTimeEdit_editingFinished()
{
    checkAllLim();
}

void GrafOptions::on_dateTimeEdit_2_editingFinished()
{
    checkAllLim();
}

void GrafOptions::on_highLim_LE_editingFinished()
{
    checkAllLim();
}

void GrafOptions::on_lowLim_LE_editingFinished()
{
    checkAllLim();
}

void GrafOptions::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        ui->retranslateUi(this);
        fillLists();
    }
    QWidget::changeEvent(event);
}

void GrafOptions::closeEvent(QCloseEvent* event)
{
    on_CancelBtn_clicked();
    event->accept();
}

void GrafOptions::keyPressEvent(QKeyEvent* event)
{
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    auto* button = qobject_cast<QPushButton*>(focusWidget());
    if (event->key() == Qt::Key_Escape)
        on_CancelBtn_clicked();
    else if (enter && button)
        button->click();
    else if (enter && ui->limitsBox->isAncestorOf(focusWidget()))
        on_pushButton_clicked();
    else if (enter)
        on_OkBtn_clicked();
    else
        QWidget::keyPressEvent(event);
}
