// Renders the drawings of a directory into the pictures that are built into the program: NAME.svg becomes
// NAME.png, and icon.svg becomes icon.ico.

#include <QBuffer>
#include <QDataStream>
#include <QDir>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSaveFile>
#include <QSvgRenderer>

#include <cstdio>

namespace {

// Pixels. Buttons show 16 to 24; twice that keeps the pictures sharp on dense screens.
constexpr int buttonSize = 48;
constexpr int windowIconSizes[] = {16, 24, 32, 48, 64, 128};

QByteArray png(QSvgRenderer& drawing, int size)
{
    QImage image(size, size, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    drawing.render(&painter);
    painter.end();
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG", 0);
    return bytes;
}

/// The directory of the icon file (6 bytes, then 16 for each picture), then the pictures themselves.
QByteArray ico(QSvgRenderer& drawing)
{
    QByteArray head, pictures;
    QDataStream out(&head, QIODevice::WriteOnly);
    out.setByteOrder(QDataStream::LittleEndian);
    const quint32 count = std::size(windowIconSizes);
    out << quint16(0) << quint16(1) << quint16(count);
    for (const int size : windowIconSizes) {
        const QByteArray picture = png(drawing, size);
        const quint32 offset = 6 + 16 * count + quint32(pictures.size());
        out << quint8(size) << quint8(size) << quint8(0) << quint8(0) << quint16(1) << quint16(32)
            << quint32(picture.size()) << offset;
        pictures += picture;
    }
    return head + pictures;
}

bool write(const QString& name, const QByteArray& bytes)
{
    QSaveFile file(name);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    if (argc != 2) {
        std::fputs("usage: rendericons DIRECTORY\n", stderr);
        return 2;
    }
    const QDir images(QString::fromLocal8Bit(argv[1]));
    for (const QFileInfo& source : images.entryInfoList({QStringLiteral("*.svg")}, QDir::Files)) {
        QSvgRenderer drawing(source.filePath());
        const bool windowIcon = source.baseName() == QLatin1String("icon");
        const QString target = images.filePath(source.baseName() + (windowIcon ? ".ico" : ".png"));
        if (!drawing.isValid() || !write(target, windowIcon ? ico(drawing) : png(drawing, buttonSize))) {
            std::fprintf(stderr, "%s: cannot be rendered\n", qPrintable(source.filePath()));
            return 1;
        }
    }
    return 0;
}
