#pragma once

#include <QApplication>
#include <QStringList>

/// The application object with the outermost guard: whatever escapes a handler is logged, told to the user,
/// the busy state is cleared, and the program goes on with its records intact.
class Application : public QApplication {
    Q_OBJECT
public:
    Application(int& argumentCount, char** arguments);

    bool notify(QObject* receiver, QEvent* event) override;

private:
    void recover(const QEvent* event, const QString& what, bool busyBefore);
    void tell();

    int m_depth = 0; // handlers under way, one inside the other
    bool m_telling = false;
    QStringList m_untold; // what the user has not been told yet; an empty text means exhausted memory
    QStringList m_paintFailures; // told already
};
