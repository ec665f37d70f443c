#include "plot/plotform.h"

#include "base/globals.h"
#include "base/language.h"
#include "base/paths.h"
#include "base/wholefile.h"
#include "plot/core/tiff.h"
#include "plot/multiaxisplot.h"
#include "plot/plotboxes.h"
#include "plot/plotrenderer.h"
#include "plot/plotslot.h"
#include "prompt/prompt.h"

#include <QBuffer>
#include <QClipboard>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImage>
#include <QLayout>
#include <QLocale>
#include <QPainter>
#include <QPdfWriter>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QRegularExpression>
#include <QSaveFile>
#include <QSvgGenerator>
#include <QTextCodec>
#include <qwt_legend.h>
#include <qwt_plot_canvas.h>
#include <qwt_plot_grid.h>
#include <qwt_plot_layout.h>
#include <qwt_text_label.h>

#include <algorithm>

namespace {

constexpr int bitmapDpi = 300;
constexpr double mmPerInch = 25.4;
/// White edge around the plot in a picture, in pixels of the screen.
constexpr int pictureMargin = 6;
/// Width of the grid lines of a PDF or SVG picture, in pixels of the screen.
constexpr double vectorGridWidth = 0.5;

const char* const imageFilter =
    "PDF file (*.pdf);;Bitmap file (*.bmp);;Portable Network Graphics file (*.png);;"
    "TIF file (*.tif);;JPEG file (*.jpeg);;SVG file (*.svg)";

/// The suffix that a filter names: "(*.pdf)" gives "pdf".
QString suffixOf(const QString& filter)
{
    const auto match = QRegularExpression(QStringLiteral("\\(\\*\\.(\\w+)\\)")).match(filter);
    return match.captured(1);
}

/// What the dialogs of all graph windows remember while the program runs.
struct LastExport {
    bool folderKnown = false; ///< the global WorkFolder then holds it
    QString filter;
};

LastExport& lastExport()
{
    static LastExport last;
    return last;
}

QString exportFolder()
{
    return lastExport().folderKnown && WorkFolder.exists() ? WorkFolder.absolutePath() : paths::data();
}

void rememberFolder(const QString& file)
{
    WorkFolder = QFileInfo(file).absoluteDir();
    lastExport().folderKnown = true;
}

QString withoutImageSuffix(const QString& file)
{
    static const QRegularExpression known(
        QStringLiteral("\\.(pdf|bmp|png|tiff?|jpe?g|svg)$"), QRegularExpression::CaseInsensitiveOption);
    return QString(file).remove(known);
}

/// A new file, or one that may give way: never a device.
bool replaceable(const QString& file)
{
    const QFileInfo there(file);
    return !there.exists() || there.isFile();
}

} // namespace

/// What printing changes in the picture, to be put back afterwards.
struct PlotForm::Look {
    QPen majorPen;
    QPen minorPen;
    int frameWidth = 1;
    std::array<QPen, curveLimit> pens;
};

PlotForm::ImageFormat PlotForm::formatOf(const QString& suffix)
{
    static const QHash<QString, ImageFormat> formats = {{"pdf", ImageFormat::Pdf}, {"svg", ImageFormat::Svg},
        {"bmp", ImageFormat::Bmp}, {"png", ImageFormat::Png}, {"tif", ImageFormat::Tiff},
        {"tiff", ImageFormat::Tiff}, {"jpg", ImageFormat::Jpeg}, {"jpeg", ImageFormat::Jpeg}};
    return formats.value(suffix.toLower(), ImageFormat::None);
}

/// While it lives, the plot looks as it does in pictures: no check boxes, and the note below the title.
class PlotForm::PictureScope {
public:
    explicit PictureScope(PlotForm& form)
        : m_form(form)
        , m_title(form.m_plot->title())
    {
        // A window that was never shown has not been laid out yet.
        form.ensurePolished();
        form.layout()->activate();
        form.m_plot->updateLayout();
        form.replot();
        form.pictureLegend();
        const QString note = form.m_pictureNote ? form.m_pictureNote() : QString();
        if (note.isEmpty())
            return;
        const int before = titleHeight();
        form.setPlotTitle(m_title.text().isEmpty() ? note : m_title.text() + '\n' + note);
        form.m_noteHeight = titleHeight() - before;
    }

    ~PictureScope()
    {
        m_form.m_noteHeight = 0;
        m_form.m_plot->setTitle(m_title);
        m_form.screenLegend();
    }

    PictureScope(const PictureScope&) = delete;
    PictureScope& operator=(const PictureScope&) = delete;

private:
    int titleHeight() const
    {
        const QwtTextLabel* label = m_form.m_plot->titleLabel();
        return label->text().isEmpty() ? 0 : label->heightForWidth(m_form.m_plot->width());
    }

    PlotForm& m_form;
    QwtText m_title;
};

/// The plot is not told when an item leaves the legend.
void PlotForm::leaveLegend(QwtPlotItem& item)
{
    item.setItemAttribute(QwtPlotItem::Legend, false);
    m_plot->updateLegend(&item);
}

/// A picture has no check boxes, so what is hidden leaves its legend, which stands there in full.
void PlotForm::pictureLegend()
{
    for (const auto& slot : m_slots) {
        if (!slot->visible)
            leaveLegend(slot->curve);
    }
    m_plot->plotLayout()->setLegendRatio(1.0);
}

/// Brings all entries back in their order: a single one that returns would stand last.
void PlotForm::screenLegend()
{
    const auto renew = [this](QwtPlotItem* item) {
        if (!item)
            return;
        leaveLegend(*item);
        item->setItemAttribute(QwtPlotItem::Legend, true);
    };
    for (const auto& slot : m_slots)
        renew(&slot->curve);
    for (const auto& slot : m_slots) {
        renew(slot->average.get());
        renew(slot->trend.get());
    }
    syncLegend();
    m_plot->plotLayout()->setLegendRatio(legendShare);
    m_plot->updateLayout();
}

/// In pixels of the screen. The canvas keeps the height that it has there.
QSize PlotForm::pictureSize() const
{
    const auto* legend = qobject_cast<const QwtLegend*>(m_plot->legend());
    const int full = legend->heightForWidth(std::min(legend->sizeHint().width(), m_plot->width()));
    const int more = legend->isEmpty() ? 0 : std::max(0, full - legend->height());
    return m_plot->size() + QSize(2 * pictureMargin, 2 * pictureMargin + more + m_noteHeight);
}

void PlotForm::render(QPainter* painter, const QRectF& rect)
{
    painter->fillRect(rect, Qt::white);
    const double margin = pictureMargin * rect.width() / pictureSize().width();
    PlotRenderer(*m_boxes).render(m_plot, painter, rect.adjusted(margin, margin, -margin, -margin));
}

QByteArray PlotForm::vectorImage(ImageFormat format)
{
    const QPen major = m_grid->majorPen();
    const QPen minor = m_grid->minorPen();
    // Without a width the dots would be as fine as the device can, and the grid would look solid.
    m_grid->setMajorPen(major.color(), vectorGridWidth, major.style());
    m_grid->setMinorPen(minor.color(), vectorGridWidth, minor.style());
    const QByteArray data = format == ImageFormat::Svg ? svgImage() : pdfImage();
    m_grid->setMajorPen(major);
    m_grid->setMinorPen(minor);
    return data;
}

QByteArray PlotForm::svgImage()
{
    QByteArray data;
    QBuffer buffer(&data);
    buffer.open(QIODevice::WriteOnly);
    QSvgGenerator svg;
    svg.setOutputDevice(&buffer);
    svg.setTitle(windowTitle());
    svg.setResolution(m_plot->logicalDpiX());
    svg.setSize(pictureSize());
    svg.setViewBox(QRect(QPoint(), pictureSize()));
    QPainter painter(&svg);
    render(&painter, QRect(QPoint(), pictureSize()));
    return painter.end() ? data : QByteArray();
}

QByteArray PlotForm::pdfImage()
{
    QByteArray data;
    QBuffer buffer(&data);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter pdf(&buffer);
    pdf.setTitle(windowTitle());
    pdf.setResolution(bitmapDpi);
    const QSizeF size = QSizeF(pictureSize()) * mmPerInch / m_plot->logicalDpiX();
    pdf.setPageSize(QPageSize(size, QPageSize::Millimeter, QString(), QPageSize::ExactMatch));
    pdf.setPageMargins(QMarginsF());
    QPainter painter(&pdf);
    render(&painter, QRectF(0, 0, pdf.width(), pdf.height()));
    return painter.end() ? data : QByteArray();
}

QImage PlotForm::picture(double dpi)
{
    QImage image(pictureSize() * dpi / m_plot->logicalDpiX(), QImage::Format_RGB32);
    if (image.isNull())
        return {};
    image.setDotsPerMeterX(qRound(dpi * 1000.0 / mmPerInch));
    image.setDotsPerMeterY(qRound(dpi * 1000.0 / mmPerInch));
    QPainter painter(&image);
    render(&painter, image.rect());
    return image;
}

QByteArray PlotForm::bitmapImage(ImageFormat format)
{
    const QImage image = picture(bitmapDpi);
    if (image.isNull())
        return {};
    if (format == ImageFormat::Tiff) {
        // The library writes TIFF only with a plugin that a machine may lack.
        const QImage rgb = image.convertToFormat(QImage::Format_RGB888);
        QByteArray rows;
        rows.reserve(rgb.width() * rgb.height() * 3);
        for (int y = 0; y < rgb.height(); ++y)
            rows.append(reinterpret_cast<const char*>(rgb.constScanLine(y)), rgb.width() * 3);
        return encodeTiff(rows, rgb.width(), rgb.height(), bitmapDpi);
    }
    QByteArray data;
    QBuffer buffer(&data);
    buffer.open(QIODevice::WriteOnly);
    const char* name = format == ImageFormat::Png ? "PNG" : format == ImageFormat::Bmp ? "BMP" : "JPEG";
    return image.save(&buffer, name, format == ImageFormat::Jpeg ? 95 : -1) ? data : QByteArray();
}

bool PlotForm::saveImageTo(const QString& file, QString* error)
{
    const ImageFormat format = formatOf(QFileInfo(file).suffix());
    if (format == ImageFormat::None || curveCount < 1) {
        if (error)
            *error = curveCount < 1 ? tr("Нет ни одной кривой") : tr("Неизвестный формат изображения");
        return false;
    }
    if (!replaceable(file)) {
        if (error)
            *error = tr("Это не обычный файл");
        return false;
    }
    const PictureScope scope(*this);
    const bool vector = format == ImageFormat::Pdf || format == ImageFormat::Svg;
    const QByteArray data = vector ? vectorImage(format) : bitmapImage(format);
    if (data.isEmpty()) {
        if (error)
            *error = tr("Не удалось построить изображение");
        return false;
    }
    return replaceFile(file, data, error);
}

void PlotForm::saveImage()
{
    if (curveCount < 1)
        return;
    QString filter = lastExport().filter;
    const QString name = prompt::saveFile(
        this, tr("Сохранить график"), exportFolder(), QString::fromLatin1(imageFilter), &filter);
    if (name.isEmpty())
        return;
    lastExport().filter = filter;
    rememberFolder(name);
    const QString file = withoutImageSuffix(name) + '.' + suffixOf(filter);
    // The dialog has asked about the name as it was typed.
    if (file != name && QFileInfo(file).isFile()
        && prompt::message(this, QMessageBox::Question, tr("Сохранить график"),
               tr("Файл %1 уже существует. Заменить его?").arg(QDir::toNativeSeparators(file)),
               QMessageBox::Yes | QMessageBox::No)
            != QMessageBox::Yes)
        return;
    QString error;
    if (!saveImageTo(file, &error))
        prompt::message(this, QMessageBox::Warning, tr("Сохранить график"),
            tr("Не удалось сохранить файл") + " " + file + ".\n" + error);
}

PlotForm::Look PlotForm::printLook()
{
    Look look;
    auto* canvas = qobject_cast<QwtPlotCanvas*>(m_plot->canvas());
    look.majorPen = m_grid->majorPen();
    look.minorPen = m_grid->minorPen();
    look.frameWidth = canvas->lineWidth();
    m_grid->setMajorPen(look.majorPen.color(), 1.0, look.majorPen.style());
    m_grid->setMinorPen(look.minorPen.color(), 1.0, look.minorPen.style());
    canvas->setLineWidth(2);
    for (size_t i = 0; i < m_slots.size(); ++i) {
        look.pens[i] = m_slots[i]->curve.pen();
        QPen pen = look.pens[i];
        if (pen.widthF() <= 0.0)
            pen.setWidthF(pen.widthF() + 1.0);
        m_slots[i]->curve.setPen(pen);
    }
    return look;
}

void PlotForm::restoreLook(const Look& look)
{
    m_grid->setMajorPen(look.majorPen);
    m_grid->setMinorPen(look.minorPen);
    qobject_cast<QwtPlotCanvas*>(m_plot->canvas())->setLineWidth(look.frameWidth);
    for (size_t i = 0; i < m_slots.size(); ++i)
        m_slots[i]->curve.setPen(look.pens[i]);
}

void PlotForm::copyImage()
{
    if (curveCount < 1)
        return;
    const PictureScope scope(*this);
    QGuiApplication::clipboard()->setImage(picture(m_plot->logicalDpiX() * m_plot->devicePixelRatioF()));
}

void PlotForm::preparePrinter(QPrinter* printer) const
{
    printer->setPageOrientation(QPageLayout::Landscape);
    printer->setDocName(m_plot->title().text().replace('\n', QStringLiteral(" -- ")));
    printer->setCreator(windowTitle());
}

/// False when the printer cannot be written to.
bool PlotForm::paintPage(QPrinter* printer)
{
    const Look look = printLook();
    QPainter painter;
    const bool begun = painter.begin(printer);
    if (begun) {
        const PictureScope scope(*this);
        const QSizeF paper(printer->width(), printer->height());
        render(&painter, QRectF(QPointF(), paper));
        painter.end();
    }
    restoreLook(look);
    replot();
    return begun;
}

void PlotForm::previewPrint()
{
    QPrinter printer(QPrinter::HighResolution);
    preparePrinter(&printer);
    const QPointer<QPrintPreviewDialog> dialog = new QPrintPreviewDialog(&printer, this);
    dialog->setWindowTitle(tr("Предварительный просмотр"));
    connect(dialog, &QPrintPreviewDialog::paintRequested, this, &PlotForm::paintPage);
    prompt::run(*dialog);
    delete dialog; // it has gone already when this window was closed meanwhile
}

void PlotForm::printImage()
{
    QPrinter printer(QPrinter::HighResolution);
    preparePrinter(&printer);
    // The dialog writes numbers and dates the Russian way in both languages.
    if (!prompt::print(this, &printer, QLocale(QLocale::Russian, QLocale::RussianFederation)))
        return;
    if (!paintPage(&printer))
        prompt::message(this, QMessageBox::Warning, tr("Печать"), tr("Не удалось напечатать график."));
}

ExportRequest PlotForm::exportRequest() const
{
    ExportRequest request;
    const bool spectrum =
        plotKind == 2 || windowTitle().contains(QStringLiteral("спектр"), Qt::CaseInsensitive); // verbatim
    request.kind = spectrum ? ExportKind::Spectrum
        : isHourPlot        ? ExportKind::Hour
        : isDayPlot         ? ExportKind::Day
                            : ExportKind::Tau;
    request.startTime = startTime;
    request.english = language::isEnglish();
    for (int i = 0; i < curveCount; ++i) {
        const Slot& slot = *m_slots[size_t(i)];
        if (!slot.visible)
            continue;
        const PlotPoints points = pointsOf(i);
        ExportColumn column;
        column.title = points.title;
        column.x = points.x;
        column.y = points.y;
        request.columns << column;
    }
    return request;
}

bool PlotForm::exportASCIITo(const QString& file, QString* error)
{
    const QStringList lines = exportTable(exportRequest());
    QSaveFile out(file);
    if (lines.isEmpty() || !replaceable(file) || !openToReplace(&out))
        return false;
    const QByteArray text = QTextCodec::codecForName("Windows-1251")
                                ->fromUnicode(lines.join(QLatin1Char('\n')) + QLatin1Char('\n'));
    const bool written = writeWhole(&out, text.constData(), text.size()) && out.commit();
    if (!written && error)
        *error = out.errorString();
    return written;
}

void PlotForm::exportASCII()
{
    const QString file = prompt::saveFile(
        this, tr("Сохранить таблицу"), exportFolder() + QStringLiteral("/table.txt"), QString());
    if (file.isEmpty())
        return;
    rememberFolder(file);
    // A file that cannot be opened is passed over in silence; half a table is not.
    QString error;
    if (!exportASCIITo(file, &error) && !error.isEmpty())
        prompt::message(this, QMessageBox::Warning, tr("Сохранить таблицу"),
            tr("Не удалось сохранить файл") + " " + file + ".\n" + error);
}
