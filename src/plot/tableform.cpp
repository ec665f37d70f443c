#include "plot/tableform.h"

#include "base/paths.h"
#include "plot/core/texttable.h"
#include "plot/popupmenu.h"
#include "prompt/prompt.h"

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
#include <QSaveFile>
#include <QTableWidget>
#include <QTextCodec>
#include <QTextDocument>
#include <QVBoxLayout>

#include <utility>

namespace {

/// Least column widths, in characters.
constexpr int exportWidth = 15;
constexpr int tableWidth = 25;
constexpr int printedFirstHeadWidth = 17;

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
    for (int row = 0; row < sorchTable->rowCount(); ++row) {
        auto* item = new QTableWidgetItem(texts.value(row));
        item->setFlags(item->flags() & ~Qt::ItemIsEditable);
        item->setTextAlignment(int(Qt::AlignRight | Qt::AlignVCenter));
        sorchTable->setItem(row, column, item);
    }
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
    QSaveFile out(file);
    const QTextCodec* codec = QTextCodec::codecForName("Windows-1251");
    const QByteArray bytes = codec->fromUnicode(text);
    if (!out.open(QIODevice::WriteOnly | QIODevice::Text) || out.write(bytes) != bytes.size()
        || !out.commit())
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
