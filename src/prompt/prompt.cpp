#include "prompt/prompt.h"

#include <QColorDialog>
#include <QFileDialog>
#include <QPrintDialog>
#include <QPrinter>

namespace prompt {

namespace {

Responder& responder()
{
    static Responder current;
    return current;
}

/// The desktop's own file dialog cannot be driven by a test; a responder gets Qt's.
void preferDrivable(QFileDialog& dialog)
{
    if (responder())
        dialog.setOption(QFileDialog::DontUseNativeDialog);
}

QString chosenFile(QFileDialog& dialog)
{
    preferDrivable(dialog);
    if (run(dialog) != QDialog::Accepted)
        return {};
    const QStringList files = dialog.selectedFiles();
    return files.isEmpty() ? QString() : files.first();
}

} // namespace

void setResponder(Responder next)
{
    responder() = std::move(next);
}

int run(QDialog& dialog)
{
    return responder() ? responder()(dialog) : dialog.exec();
}

QMessageBox::StandardButton message(QWidget* parent, QMessageBox::Icon icon, const QString& title,
    const QString& text, QMessageBox::StandardButtons buttons)
{
    QMessageBox box(icon, title, text, buttons, parent);
    run(box);
    return box.clickedButton() ? box.standardButton(box.clickedButton()) : QMessageBox::NoButton;
}

QString openFile(QWidget* parent, const QString& title, const QString& start, const QString& filter)
{
    QFileDialog dialog(parent, title, start, filter);
    dialog.setFileMode(QFileDialog::ExistingFile);
    return chosenFile(dialog);
}

QString saveFile(
    QWidget* parent, const QString& title, const QString& start, const QString& filter, QString* chosenFilter)
{
    const QFileInfo info(start);
    QFileDialog dialog(parent, title, info.isDir() ? start : info.path(), filter);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    if (!info.isDir())
        dialog.selectFile(info.fileName());
    if (chosenFilter && !chosenFilter->isEmpty())
        dialog.selectNameFilter(*chosenFilter);
    const QString file = chosenFile(dialog);
    if (chosenFilter && !file.isEmpty())
        *chosenFilter = dialog.selectedNameFilter();
    return file;
}

QString directory(QWidget* parent, const QString& title, const QString& start)
{
    QFileDialog dialog(parent, title, start);
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    return chosenFile(dialog);
}

QColor color(QWidget* parent, const QColor& start)
{
    QColorDialog dialog(start, parent);
    return run(dialog) == QDialog::Accepted ? dialog.selectedColor() : QColor();
}

bool print(QWidget* parent, QPrinter* printer, const QLocale& locale)
{
    QPrintDialog dialog(printer, parent);
    dialog.setLocale(locale);
    return run(dialog) == QDialog::Accepted;
}

} // namespace prompt
