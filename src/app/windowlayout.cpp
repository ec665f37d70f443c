#include "app/windowlayout.h"

#include "base/paths.h"

#include <QApplication>
#include <QDialog>
#include <QEvent>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMainWindow>
#include <QMessageBox>
#include <QRegularExpression>
#include <QScreen>

#include <algorithm>

namespace {

constexpr qint64 largestFile = 64 * 1024; // bytes
constexpr QSize leastSize(100, 60); // below that nobody can have wanted a window

/// Only what keep() and its like write. QSettings reads other forms of values, too, some of which ask for as
/// much memory as they like.
bool isOwnText(const QByteArray& content)
{
    static const QRegularExpression known(
        QStringLiteral("^(\\[[\\w%]+\\]|size=@Size\\(\\d+ \\d+\\)|place=@Rect\\((-?\\d+ ){2}\\d+ "
                       "\\d+\\)|geometry=[0-9a-f]+)?$"));
    const QList<QByteArray> lines = content.split('\n');
    return std::all_of(lines.begin(), lines.end(),
        [](const QByteArray& line) { return known.match(QString::fromLatin1(line)).hasMatch(); });
}

/// The file to keep places in, without what no earlier session can have left there; empty for none, where
/// something else than a file has its name.
QString storeFile(const QString& name)
{
    const QFileInfo info(name);
    if (!info.exists())
        return name;
    if (!info.isFile())
        return {};
    QFile file(name);
    if (info.size() > largestFile || (file.open(QIODevice::ReadOnly) && !isOwnText(file.readAll())))
        QFile::remove(name);
    return name;
}

/// A size that a window can have had; it may reach beyond the screens, but not by far.
bool isPlausible(const QSize& size)
{
    const QSize most = QGuiApplication::primaryScreen()->availableVirtualSize() * 2;
    return size.width() >= leastSize.width() && size.height() >= leastSize.height()
        && size.width() <= most.width() && size.height() <= most.height();
}

/// Dialogs of this program that the user can resize; Qt's own look after themselves.
bool isFollowed(const QDialog& dialog)
{
    const bool resizable = dialog.minimumSize() != dialog.maximumSize();
    return dialog.isWindow() && resizable && !qobject_cast<const QMessageBox*>(&dialog)
        && !qobject_cast<const QFileDialog*>(&dialog)
        && qstrncmp(dialog.metaObject()->className(), "Q", 1) != 0;
}

QString kindOf(const QObject& window)
{
    return QLatin1String(window.metaObject()->className());
}

} // namespace

WindowLayout::WindowLayout()
    : m_store(storeFile(paths::config() + QLatin1String("/windows.ini")), QSettings::IniFormat)
{
    qApp->installEventFilter(this);
}

bool WindowLayout::restore(QMainWindow* window)
{
    const QByteArray digits = m_store.value(QStringLiteral("main/geometry")).toByteArray();
    // Qt moves a window that stood on a screen which is gone back into sight, but leaves it any size.
    if (!window->restoreGeometry(QByteArray::fromHex(digits)))
        return false;
    const QRect normal = window->normalGeometry();
    if (isPlausible(window->size()) && (normal.isNull() || isPlausible(normal.size())))
        return true;
    window->setWindowState(Qt::WindowNoState);
    window->setGeometry(window->screen()->availableGeometry());
    return false;
}

void WindowLayout::keep(const QMainWindow* window)
{
    m_store.setValue(QStringLiteral("main/geometry"), QString::fromLatin1(window->saveGeometry().toHex()));
}

QSize WindowLayout::sizeOf(const QString& kind, const QSize& fallback) const
{
    const QSize size = m_store.value(kind + QLatin1String("/size")).toSize();
    return isPlausible(size) ? size : fallback;
}

void WindowLayout::keepSize(const QString& kind, const QSize& size)
{
    m_store.setValue(kind + QLatin1String("/size"), size);
}

QRect WindowLayout::placeOf(const QString& kind) const
{
    const QRect place = m_store.value(kind + QLatin1String("/place")).toRect();
    return isPlausible(place.size()) ? place : QRect();
}

void WindowLayout::keepPlace(const QString& kind, const QRect& place)
{
    m_store.setValue(kind + QLatin1String("/place"), place);
}

bool WindowLayout::eventFilter(QObject* watched, QEvent* event)
{
    if ((event->type() != QEvent::Show && event->type() != QEvent::Hide) || event->spontaneous())
        return false;
    auto* dialog = qobject_cast<QDialog*>(watched);
    if (!dialog || !isFollowed(*dialog))
        return false;
    if (event->type() == QEvent::Hide) {
        keepSize(kindOf(*dialog), dialog->size());
        return false;
    }
    const QRect screen = dialog->screen()->availableGeometry();
    const QSize size = sizeOf(kindOf(*dialog), dialog->size());
    dialog->resize(size.boundedTo(screen.size()).expandedTo(dialog->minimumSizeHint()));
    return false;
}
