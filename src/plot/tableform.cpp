#include "plot/tableform.h"

#include "base/debuglog.h"
#include "base/paths.h"
#include "base/wholefile.h"
#include "plot/core/texttable.h"
#include "plot/popupmenu.h"
#include "prompt/guard.h"
#include "prompt/prompt.h"

#include <QAbstractItemView>
#include <QAction>
#include <QClipboard>
#include <QCloseEvent>
#include <QFont>
#include <QFontMetricsF>
#include <QGridLayout>
#include <QGuiApplication>
#include <QHeaderView>
#include <QMenu>
#include <QMenuBar>
#include <QPrinter>
#include <QTableWidget>
#include <QTextCodec>
#include <QTextDocument>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

/// Least column widths, in characters.
constexpr int exportWidth = 15;
constexpr int tableWidth = 25;
constexpr int printedFirstHeadWidth = 17;

/// A deviation not above this has not been computed yet.
constexpr double leastValue = 1e-30;
/// Heads tell averaging times to ten digits.
constexpr double headRounding = 1e-9;

/// Width of the printed text in points: A4 across, less the 2 cm that QTextDocument leaves on either side.
constexpr double printedWidth = (297.0 - 40.0) / 25.4 * 72.0;

void fitIntoPage(QTextDocument* document, const QString& text)
{
    QFont font(QStringLiteral("Courier New"), 10);
    font.setStyleHint(QFont::TypeWriter);
    const double advance = QFontMetricsF(font).horizontalAdvance(QString(100, QLatin1Char('0')))
        / (100.0 * QFontMetricsF(font).fontDpi() / 72.0 * font.pointSizeF());
    font.setPointSizeF(fontSizeToFit(text, printedWidth, font.pointSizeF(), advance));
    document->setDefaultFont(font);
    document->setPlainText(text);
}

} // namespace

TableForm::TableForm(QWidget* parent)
    : QWidget(parent)
    , gridLayoutWidget(new QWidget(this))
    , gridLayout(new QGridLayout(gridLayoutWidget))
    , sorchTable(new QTableWidget(gridLayoutWidget))
    , m_options(nullptr)
    , m_export(nullptr)
    , m_popup(nullptr)
{
    gridLayoutWidget->setObjectName(QStringLiteral("gridLayoutWidget"));
    gridLayout->setObjectName(QStringLiteral("gridLayout"));
    gridLayout->setContentsMargins(4, 4, 4, 4);
    gridLayout->addWidget(sorchTable, 0, 0);

    sorchTable->setObjectName(QStringLiteral("sorchTable"));
    sorchTable->setAlternatingRowColors(true);
    sorchTable->setSelectionBehavior(QAbstractItemView::SelectRows);
    sorchTable->setSelectionMode(QAbstractItemView::ExtendedSelection);
    sorchTable->setEditTriggers(QAbstractItemView::NoEditTriggers);
    sorchTable->setWordWrap(false);
    sorchTable->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    sorchTable->horizontalHeader()->setMinimumSectionSize(70);
    sorchTable->verticalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    sorchTable->verticalHeader()->setDefaultAlignment(Qt::AlignRight | Qt::AlignVCenter);

    auto* bar = new QMenuBar(this);
    m_options = bar->addMenu(QString());
    m_export = m_options->addAction(QString());
    connect(m_export, &QAction::triggered, this, &TableForm::exportASCII);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setMenuBar(bar);
    layout->addWidget(gridLayoutWidget);

    m_popup = new popupmenu(sorchTable->viewport());
    sorchTable->addAction(m_popup->copyAction());
    connect(m_popup, &popupmenu::copySelected, this, &TableForm::copySelected);
    connect(m_popup, &popupmenu::copyAllTab, this, &TableForm::copyAllTab);
    connect(m_popup, &popupmenu::saveTab, this, &TableForm::saveTab);
    connect(m_popup, &popupmenu::printTab, this, &TableForm::printTab);

    resize(640, 420);
    retranslate();
}

void TableForm::setColNum(int count, QStringList heads)
{
    if (count <= sorchTable->rowCount())
        return;
    sorchTable->setRowCount(count);
    sorchTable->setVerticalHeaderLabels(heads);
}

// No row is set off from the others.
void TableForm::setBoldLine(QStringList) { }

void TableForm::setColWidth(int column, int width)
{
    sorchTable->setColumnWidth(column, width);
}

void TableForm::setRowCount(int count)
{
    sorchTable->setRowCount(count);
}

void TableForm::addLine(QStringList texts)
{
    const int column = sorchTable->columnCount();
    sorchTable->setColumnCount(column + 1);
    for (int row = 0; row < sorchTable->rowCount(); ++row)
        putItem(row, column, texts.value(row));
}

void TableForm::putItem(int row, int column, const QString& text)
{
    auto* item = new QTableWidgetItem(text);
    item->setFlags(item->flags() & ~Qt::ItemIsEditable);
    item->setTextAlignment(int(Qt::AlignRight | Qt::AlignVCenter));
    sorchTable->setItem(row, column, item);
}

void TableForm::resizeCol()
{
    sorchTable->resizeColumnsToContents();
}

void TableForm::setTitleSource(std::function<QString()> source)
{
    m_title = std::move(source);
    retranslate();
}

void TableForm::setHeadSource(std::function<QStringList()> source)
{
    m_heads = std::move(source);
    retranslate();
}

void TableForm::UpdDynValues(int count, varInf info, const double* tau)
{
    const int column = channels.indexOf(info.recID);
    if (column < 0) {
        DebugLOG("not found");
        return;
    }
    if (info.typeOfVar != avarType || !tau || !(info.interval > 0.0))
        return;
    runGuarded("TableForm UpdDynValues", [&] {
        for (int i = 0; i < std::min(count, info.length); ++i) {
            if (std::isfinite(info.value[i]) && std::fabs(info.value[i]) > leastValue && tau[i] > 0.0)
                writeValue(column, tau[i], info.value[i] / info.interval);
        }
    });
    const QAbstractItemView* view = sorchTable;
    const int wanted = view->sizeHintForColumn(column);
    if (wanted > sorchTable->columnWidth(column))
        sorchTable->setColumnWidth(column, wanted);
}

void TableForm::writeValue(int column, double tau, double value)
{
    const int row = rowOfTau(tau);
    const QString text = QString::number(value, 'g', 6);
    if (QTableWidgetItem* item = sorchTable->item(row, column))
        item->setText(text);
    else
        putItem(row, column, text);
}

/// The row headed by an averaging time; the heads of such rows rise.
int TableForm::rowOfTau(double tau)
{
    int row = 0;
    for (; row < sorchTable->rowCount(); ++row) {
        const QTableWidgetItem* head = sorchTable->verticalHeaderItem(row);
        bool isTau = false;
        const double here = head ? head->text().toDouble(&isTau) : 0.0;
        if (isTau && std::fabs(here - tau) <= headRounding * tau)
            return row;
        if (isTau && here > tau)
            break;
    }
    sorchTable->insertRow(row);
    sorchTable->setVerticalHeaderItem(row, new QTableWidgetItem(QString::number(tau, 'g', 10)));
    for (int column = 0; column < sorchTable->columnCount(); ++column)
        putItem(row, column, QString());
    return row;
}

TextTable TableForm::content() const
{
    TextTable table;
    for (int row = 0; row < sorchTable->rowCount(); ++row) {
        const QTableWidgetItem* head = sorchTable->verticalHeaderItem(row);
        table.heads << (head ? head->text() : QString());
    }
    for (int column = 0; column < sorchTable->columnCount(); ++column) {
        QStringList cells;
        for (int row = 0; row < sorchTable->rowCount(); ++row) {
            const QTableWidgetItem* item = sorchTable->item(row, column);
            cells << (item ? item->text() : QString());
        }
        table.columns << cells;
    }
    return table;
}

void TableForm::writeText(const QString& file, const QString& text)
{
    const QTextCodec* codec = QTextCodec::codecForName("Windows-1251");
    if (!replaceFile(file, codec->fromUnicode(text)))
        prompt::message(this, QMessageBox::Critical, tr("Сохранить таблицу"), tr("ERROR! (file saving)"),
            QMessageBox::Ok);
}

void TableForm::exportASCII()
{
    const QString file = prompt::saveFile(this, tr("Сохранить таблицу"),
        paths::data() + QStringLiteral("/table.txt"), tr("Текстовый файл (*.txt)"));
    if (file.isEmpty())
        return;
    const TextTable table = content();
    // Here the name alone decides the width: a longer cell of another row stands out of its column.
    writeText(file, textTable(table, widthsByName(table, exportWidth), allRows(table)));
}

void TableForm::saveTab()
{
    const QString file = prompt::saveFile(this, tr("Сохранить таблицу"),
        paths::data() + QStringLiteral("/AVARTAB.txt"), tr("Текстовый файл (*.txt)"));
    if (file.isEmpty())
        return;
    const TextTable table = content();
    writeText(file, textTable(table, widthsByLongest(table, tableWidth), allRows(table)));
}

void TableForm::printTab()
{
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageOrientation(QPageLayout::Landscape);
    printer.setDocName(tr("Таблица результатов измерений"));
    printer.setCreator(tr("Таблица"));
    if (!prompt::print(this, &printer))
        return;
    const TextTable table = content();
    QTextDocument document;
    // On paper the head of the first line is wider than the others.
    fitIntoPage(&document,
        textTable(table, widthsByLongest(table, tableWidth), allRows(table), printedFirstHeadWidth));
    document.print(&printer);
}

void TableForm::copyAllTab()
{
    const TextTable table = content();
    QGuiApplication::clipboard()->setText(
        textTable(table, widthsByLongest(table, tableWidth), allRows(table)));
}

bool TableForm::namesColumns(const QString& head) const
{
    // The heads may stay in Russian while the language changes.
    for (const char* name : {QT_TR_NOOP("Канал"), QT_TR_NOOP("Название")}) {
        if (head == tr(name) || head == QString::fromUtf8(name))
            return true;
    }
    return false;
}

void TableForm::copySelected()
{
    const TextTable table = content();
    QList<int> rows;
    for (int row = 0; row < sorchTable->rowCount(); ++row) {
        const QTableWidgetItem* first = sorchTable->item(row, 0);
        if (namesColumns(table.heads.at(row)) || (first && first->isSelected()))
            rows << row;
    }
    QGuiApplication::clipboard()->setText(textTable(table, widthsByLongest(table, tableWidth), rows));
}

void TableForm::retranslate()
{
    m_options->setTitle(tr("&Опции"));
    m_export->setText(tr("&Экспорт в ASCII"));
    if (m_title)
        setWindowTitle(m_title());
    if (!m_heads)
        return;
    const QStringList heads = m_heads();
    for (int row = 0; row < qMin(heads.size(), sorchTable->rowCount()); ++row)
        sorchTable->setVerticalHeaderItem(row, new QTableWidgetItem(heads.at(row)));
}

void TableForm::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}

void TableForm::closeEvent(QCloseEvent* event)
{
    emit IsClosing(this);
    QWidget::closeEvent(event);
}
