#include "graphs.h"
#include "plot/multiaxisplot.h"
#include "plot/plotlegend.h"
#include "plot/stabilitygraph.h"
#include "support/near.h"
#include "support/scopedhome.h"
#include "support/scopedprompts.h"

#include <QAction>
#include <QClipboard>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QGuiApplication>
#include <QImageReader>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QTemporaryDir>
#include <QTest>
#include <QTextCodec>
#include <QXmlStreamReader>
#include <qwt_plot_canvas.h>

#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>

namespace {

QByteArray contentOf(const QString& name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool blank(const QImage& image)
{
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) != image.pixel(0, 0))
                return false;
        }
    }
    return true;
}

/// No file can grow beyond so many bytes, as on a disk that is full.
class FileLimit {
public:
    explicit FileLimit(rlim_t bytes)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit{bytes, m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileLimit() { setrlimit(RLIMIT_FSIZE, &m_before); }
    FileLimit(const FileLimit&) = delete;
    FileLimit& operator=(const FileLimit&) = delete;

private:
    rlimit m_before{};
};

} // namespace

class TestPlotExport : public QObject {
    Q_OBJECT
private slots:
    void images_data();
    void images();
    void vectorImagesStayVector();
    void longLegend();
    void imageFailures();
    void saveImageByDialog();
    void dialogsRemember();
    void picturesExplainThemselves();
    void copy();
    void print();
    void preview();
    void asciiExport();
    void fullDisk();
};

void TestPlotExport::images_data()
{
    QTest::addColumn<QString>("suffix");
    QTest::addColumn<bool>("shown");
    for (const char* suffix : {"png", "bmp", "jpeg", "JPG", "svg"})
        QTest::newRow(suffix) << QString(suffix) << true;
    QTest::newRow("never shown") << "png" << false;
}

void TestPlotExport::images()
{
    QFETCH(QString, suffix);
    QFETCH(bool, shown);
    QTemporaryDir dir;
    AvarForm form(nullptr, nullptr, 3);
    form.setStability(Statistic::Adev);
    add(form, 1, 12);
    if (shown)
        showWindow(form);
    const QString file = dir.filePath("graph." + suffix);
    QString error;
    QVERIFY2(form.saveImageTo(file, &error), qPrintable(error));
    QImageReader reader(file);
    const QImage image = reader.read();
    QVERIFY2(!image.isNull(), qPrintable(reader.errorString()));
    QVERIFY(!blank(image));
    if (suffix == "png" || suffix == "bmp")
        QCOMPARE(qRound(image.dotsPerMeterX() * 0.0254), 300);
    if (suffix == "svg")
        return;
    NEAR(double(image.width()), form.width() * 300.0 / form.logicalDpiX(), 0.02);
    NEAR(double(image.width()) / image.height(), form.plot()->width() / double(form.plot()->height()), 0.05);
    // The picture ends in a white edge: nothing is cut off.
    for (int y = 0; y < image.height(); ++y)
        QVERIFY(qGray(image.pixel(2, y)) > 240 && qGray(image.pixel(image.width() - 3, y)) > 240);
}

void TestPlotExport::vectorImagesStayVector()
{
    QTemporaryDir dir;
    AvarForm form(nullptr, nullptr, 3);
    form.setStability(Statistic::Adev);
    add(form, 1, 12);
    const QString pdf = dir.filePath("graph.pdf");
    QVERIFY(form.saveImageTo(pdf));
    const QByteArray document = contentOf(pdf);
    QVERIFY(document.startsWith("%PDF"));
    QVERIFY(document.contains("/FontFile"));
    QVERIFY(!document.contains("/Subtype /Image"));
    const QString svg = dir.filePath("graph.svg");
    QVERIFY(form.saveImageTo(svg));
    const QByteArray drawing = contentOf(svg);
    QVERIFY(drawing.contains("<polyline") && !drawing.contains("<image"));
    QVERIFY(drawing.contains("Интервал времени"));
    // The table box of the one visible curve.
    QVERIFY(drawing.contains("СКДО") && drawing.contains("2.00E-11"));
    const QString tif = dir.filePath("graph.tif");
    QVERIFY(form.saveImageTo(tif));
    QVERIFY(contentOf(tif).startsWith(QByteArray("II*\0", 4)));
    QVERIFY(contentOf(tif).size() > 5000);
}

void TestPlotExport::longLegend()
{
    QTemporaryDir dir;
    AvarForm form(nullptr, nullptr, 3);
    form.setStability(Statistic::Adev);
    for (unsigned short i = 0; i < 32; ++i) {
        add(form, i, 12);
        form.setCurveTitle(i, QString("#%1; ").arg(i) + QString(60, 'n'));
    }
    showWindow(form);
    // On the screen the titles are shortened, and the legend scrolls up and down only.
    const auto* legend = form.plot()->legend();
    for (const LegendCheck* entry : form.findChildren<LegendCheck*>())
        QVERIFY(entry->geometry().right() < legend->width());
    QVERIFY(legend->height() < form.plot()->height() / 3);

    // In a picture nothing scrolls: all that is visible stands above a canvas of the same size.
    form.showCurve(form.curve(7), false);
    const QString svg = dir.filePath("graph.svg");
    QVERIFY(form.saveImageTo(svg));
    const QByteArray drawing = contentOf(svg);
    for (int i = 0; i < 32; ++i)
        QCOMPARE(drawing.contains(QString("#%1; n").arg(i).toLatin1()), i != 7);
    const int rows = QImage(svg).height() - form.plot()->height();
    QVERIFY2(rows > 100 && rows < 400, qPrintable(QString::number(rows)));
    QCoreApplication::sendPostedEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(legend->findChildren<LegendCheck*>().size(), 32);
    QVERIFY(legend->height() < form.plot()->height() / 3);
}

void TestPlotExport::imageFailures()
{
    QTemporaryDir dir;
    AvarForm form(nullptr, nullptr, 3);
    QString error;
    QVERIFY(!form.saveImageTo(dir.filePath("graph.png"), &error) && !error.isEmpty());
    add(form, 1, 5);
    error.clear();
    QVERIFY(!form.saveImageTo(dir.filePath("graph.xyz"), &error) && !error.isEmpty());
    error.clear();
    QVERIFY(!form.saveImageTo(dir.filePath("no/such/graph.png"), &error) && !error.isEmpty());
    // What is no regular file must not be replaced by one.
    const QString pipe = dir.filePath("pipe.png");
    QCOMPARE(mkfifo(qPrintable(pipe), 0600), 0);
    error.clear();
    QVERIFY(!form.saveImageTo(pipe, &error) && !error.isEmpty());
    QVERIFY(!form.exportASCIITo(pipe));
    // A directory stands in the way of the file.
    QVERIFY(QDir(dir.path()).mkdir("graph.png"));
    ScopedPrompts prompts;
    prompts.chooseFile(dir.filePath("graph"), "*.png");
    prompts.press(QMessageBox::Ok);
    form.saveImage();
    QVERIFY2(prompts.seen.last().text.contains("graph.png"), qPrintable(prompts.seen.last().text));
}

void TestPlotExport::saveImageByDialog()
{
    ScopedHome home;
    AvarForm form(nullptr, nullptr, 3);
    add(form, 1, 5);
    ScopedPrompts prompts;
    prompts.chooseFile(home.file("graph.PDF"), "*.png");
    form.saveImage();
    QVERIFY(!QImage(home.file("graph.png")).isNull());
    QCOMPARE(prompts.seen.first().title, QString("Сохранить график"));
    prompts.chooseFile(QString());
    form.saveImage();
    // The dialog cannot warn of a file that it was not asked for.
    home.write("graph.png", "kept");
    prompts.chooseFile(home.file("graph"), "*.png");
    prompts.press(QMessageBox::No);
    form.saveImage();
    QCOMPARE(contentOf(home.file("graph.png")), QByteArray("kept"));
    prompts.chooseFile(home.file("graph"), "*.png");
    prompts.press(QMessageBox::Yes);
    form.saveImage();
    QVERIFY(!QImage(home.file("graph.png")).isNull());
}

void TestPlotExport::dialogsRemember()
{
    ScopedHome home;
    QVERIFY(QDir().mkpath(home.file("graphs")));
    AvarForm form(nullptr, nullptr, 3);
    add(form, 1, 5);
    ScopedPrompts prompts;
    prompts.chooseFile(home.file("graphs/a"), "*.png");
    form.saveImage();
    QString folder, filter;
    const auto look = [&](QDialog& dialog) {
        folder = qobject_cast<QFileDialog*>(&dialog)->directory().absolutePath();
        filter = qobject_cast<QFileDialog*>(&dialog)->selectedNameFilter();
        return int(QDialog::Rejected);
    };
    AvarForm other(nullptr, nullptr, 3);
    add(other, 1, 5);
    prompts.handle(look);
    other.saveImage();
    QCOMPARE(folder, QFileInfo(home.file("graphs")).absoluteFilePath());
    QVERIFY2(filter.contains("*.png"), qPrintable(filter));
    prompts.handle(look);
    other.exportASCII();
    QCOMPARE(folder, QFileInfo(home.file("graphs")).absoluteFilePath());
    // A folder that is gone is not offered.
    QVERIFY(QDir(home.file("graphs")).removeRecursively());
    prompts.handle(look);
    other.saveImage();
    QVERIFY(!folder.contains("graphs"));
}

void TestPlotExport::picturesExplainThemselves()
{
    QTemporaryDir dir;
    AvarForm form(nullptr, nullptr, 3);
    StabilityCurve curve;
    for (int i = 0; i < 12; ++i) {
        curve.tau.push_back(2.0 * std::pow(10.0, i / 2));
        curve.value.push_back(1e-12 / curve.tau.back());
    }
    for (const char* title : {"first", "second"}) {
        curve.title = title;
        showStability(form, Statistic::Adev, {curve}, {true, true, false});
    }
    form.resize(900, 500);
    showWindow(form);
    const QSize size = form.plot()->canvas()->size();
    const QString file = dir.filePath("graph.svg");
    QVERIFY(form.saveImageTo(file));
    QString text;
    for (QXmlStreamReader reader(contentOf(file)); !reader.atEnd(); reader.readNext())
        text += reader.isCharacters() ? reader.text().toString() : QString();
    text = text.simplified();
    QVERIFY2(text.contains("Девиация Аллана (СКДО). Дрейф искл. С перекрытиями. tau от 2 до 200000 с"),
        qPrintable(text));
    // On the screen the title of the window says it.
    QVERIFY(form.plot()->title().text().isEmpty());
    QCoreApplication::processEvents();
    QCOMPARE(form.plot()->canvas()->size(), size);
}

void TestPlotExport::copy()
{
    AvarForm form(nullptr, nullptr, 3);
    QGuiApplication::clipboard()->clear();
    form.copyImage();
    QVERIFY(QGuiApplication::clipboard()->image().isNull());
    add(form, 1, 5);
    showWindow(form);
    form.copyImage();
    const QImage image = QGuiApplication::clipboard()->image();
    QVERIFY(!image.isNull() && !blank(image));
    NEAR(double(image.width()), form.plot()->width() * form.devicePixelRatioF(), 0.04);
}

void TestPlotExport::preview()
{
    AvarForm form(nullptr, nullptr, 3);
    form.setStability(Statistic::Adev);
    add(form, 1, 5);
    ScopedPrompts prompts;
    int pageCount = 0;
    prompts.handle([&](QDialog& dialog) {
        auto* pages = dialog.findChild<QPrintPreviewWidget*>();
        pages->updatePreview();
        // A page that nobody painted would not be there.
        pageCount = pages->pageCount();
        return int(QDialog::Rejected);
    });
    const int width = qobject_cast<QwtPlotCanvas*>(form.plot()->canvas())->lineWidth();
    form.previewPrint();
    QCOMPARE(prompts.seen.first().title, QString("Предварительный просмотр"));
    QCOMPARE(pageCount, 1);
    QCOMPARE(qobject_cast<QwtPlotCanvas*>(form.plot()->canvas())->lineWidth(), width);
}

void TestPlotExport::print()
{
    ScopedHome home;
    AvarForm form(nullptr, nullptr, 3);
    form.setStability(Statistic::Adev);
    add(form, 1, 5);
    add(form, 2, 5);
    form.showCurve(form.curve(0), false);
    ScopedPrompts prompts;
    const auto printTo = [&](const QString& file) {
        prompts.handle([file](QDialog& dialog) {
            auto* print = qobject_cast<QPrintDialog*>(&dialog);
            print->printer()->setOutputFormat(QPrinter::PdfFormat);
            print->printer()->setOutputFileName(file);
            return int(QDialog::Accepted);
        });
    };
    printTo(home.file("out.pdf"));
    form.printImage();
    QVERIFY(contentOf(home.file("out.pdf")).startsWith("%PDF"));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    const auto entries = form.findChildren<LegendCheck*>();
    QCOMPARE(entries.size(), 2);
    for (const LegendCheck* entry : entries)
        QCOMPARE(entry->isChecked(), entry->text().text() == "rec 2");
    printTo(home.file("no/such/out.pdf"));
    prompts.press(QMessageBox::Ok);
    form.printImage();
}

void TestPlotExport::asciiExport()
{
    ScopedHome home;
    AvarForm form(nullptr, nullptr, 3);
    double tau[] = {10.0, 20.0};
    double value[] = {4.0, 2.0};
    form.addData(1, 2, tau, value, 0, start, start.addSecs(50));
    form.setCurveTitle(0, "Канал Ω");
    double other[] = {7.0};
    form.addData(2, 1, tau, other, 0, start, start.addSecs(50));
    form.setCurveTitle(1, "hidden");
    form.showCurve(form.curve(1), false);
    QVERIFY(form.exportASCIITo(home.file("t.txt")));
    QTextCodec* codec = QTextCodec::codecForName("Windows-1251");
    const QStringList lines = codec->toUnicode(contentOf(home.file("t.txt"))).split('\n');
    const QString minMax = "                 Min                 Max|";
    QCOMPARE(lines[0], "             tau, c|" + QString("Канал ?").rightJustified(20) + minMax);
    QCOMPARE(lines[1],
        "                 10|" + QString("4").rightJustified(20) + QString("2").rightJustified(20)
            + QString("6").rightJustified(20) + "|");
    QCOMPARE(lines.size(), 4);
    form.sqrt2Action->trigger();
    QVERIFY(form.exportASCIITo(home.file("t.txt")));
    QVERIFY(contentOf(home.file("t.txt")).contains("2.8284271           1.4142136           4.2426407|"));
    QVERIFY(!form.exportASCIITo(home.file("no/such/t.txt")));
    ScopedPrompts prompts;
    prompts.chooseFile(home.file("no-such-dir-for-this/t.txt"));
    form.plotKind = 2;
    QVERIFY(form.exportASCIITo(home.file("s.txt")));
    QVERIFY(codec->toUnicode(contentOf(home.file("s.txt"))).startsWith("            Название"));
    form.exportASCII();
}

/// What was there before outlives a failure half way, and the user hears of it.
void TestPlotExport::fullDisk()
{
    ScopedHome home;
    AvarForm form(nullptr, nullptr, 0);
    add(form, 1, 200);
    ScopedPrompts prompts;
    for (const char* name : {"g.png", "g.bmp", "g.tif", "g.jpeg", "g.pdf", "g.svg", "table.txt"}) {
        const QString file = QString::fromLatin1(name);
        home.write(file, "kept");
        prompts.chooseFile(home.file(file), "*." + QFileInfo(file).suffix());
        prompts.press(QMessageBox::Ok);
        {
            const FileLimit limit(1000);
            file == "table.txt" ? form.exportASCII() : form.saveImage();
        }
        QVERIFY2(prompts.seen.last().text.contains(file), name);
        QCOMPARE(contentOf(home.file(file)), QByteArray("kept"));
    }
    QCOMPARE(QDir(home.file(QString())).entryList({"g.*", "table*"}, QDir::Files).size(), 7);
}

QTEST_MAIN(TestPlotExport)
#include "tst_plotexport.moc"
