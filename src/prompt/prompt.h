#pragma once

#include <QColor>
#include <QLocale>
#include <QMap>
#include <QMessageBox>
#include <QString>
#include <QStringList>

#include <functional>

class QDialog;
class QPrinter;
class QWidget;

/// The one door to modal dialogs. Everything that waits for the user passes through here, so that a test can
/// answer in the user's place and no dialog can hang a run that nobody watches.
namespace prompt {

/// Shows a message box and returns the button pressed. `labels` gives buttons texts of their own.
QMessageBox::StandardButton message(QWidget* parent, QMessageBox::Icon icon, const QString& title,
    const QString& text, QMessageBox::StandardButtons buttons = QMessageBox::Ok,
    const QMap<QMessageBox::StandardButton, QString>& labels = {});

/// Asks for one existing file; empty when cancelled.
QString openFile(QWidget* parent, const QString& title, const QString& start, const QString& filter);

/// Asks for any number of existing files; none when cancelled.
QStringList openFiles(QWidget* parent, const QString& title, const QString& start, const QString& filter);

/// Asks for a file to write; empty when cancelled. `chosenFilter` takes and gives the selected filter.
QString saveFile(QWidget* parent, const QString& title, const QString& start, const QString& filter,
    QString* chosenFilter = nullptr);

/// Asks for an existing directory; empty when cancelled.
QString directory(QWidget* parent, const QString& title, const QString& start);

/// Asks for one line of text; empty when cancelled.
QString text(QWidget* parent, const QString& title, const QString& label, const QString& start = QString());

/// Asks for a colour; an invalid one when cancelled.
QColor color(QWidget* parent, const QColor& start);

/// Shows the print dialog for `printer`, in the forms of `locale`; false when cancelled.
bool print(QWidget* parent, QPrinter* printer, const QLocale& locale = QLocale());

/// Runs any other dialog modally and returns its result.
int run(QDialog& dialog);

/// When set, gets every dialog instead of the user: it may press a button of the real dialog, fill it, or set
/// a result, and returns what exec() would have returned. Tests set it.
using Responder = std::function<int(QDialog&)>;
void setResponder(Responder responder);

} // namespace prompt
