#pragma once

#include <QObject>
#include <QSettings>

class QMainWindow;
class QWidget;

/// Keeps where windows stood and how large they were, in the file windows.ini of the configuration directory.
/// Dialogs are followed by themselves, the other windows as they are handed over. A file that is damaged or
/// cannot be written only costs the places. Sizes that no window can have had on this screen count as
/// unknown.
class WindowLayout : public QObject {
    Q_OBJECT
public:
    WindowLayout();

    /// Puts the main window where it stood; false when nothing is known of it.
    bool restore(QMainWindow* window);
    void keep(const QMainWindow* window);

    /// The size that windows of this kind had last; the fallback when nothing is known.
    QSize sizeOf(const QString& kind, const QSize& fallback) const;
    void keepSize(const QString& kind, const QSize& size);
    /// The place of a window in the area; a null rectangle when nothing is known.
    QRect placeOf(const QString& kind) const;
    void keepPlace(const QString& kind, const QRect& place);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QSettings m_store;
};
