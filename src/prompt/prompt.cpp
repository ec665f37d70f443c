#include "prompt/prompt.h"

#include <QColorDialog>
#include <QFileDialog>
#include <QInputDialog>
#include <QPointer>
#include <QPrintDialog>
#include <QPrinter>

#include <utility>

namespace prompt {

namespace {

Responder& responder()
{
    static Responder current;
    return current;
}

/// A dialog that goes with the parent when that is deleted while it is open; then it is null.
template <class Dialog> class Owned {
public:
    template <class... Arguments>
    explicit Owned(Arguments&&... arguments)
        : m_dialog(new Dialog(std::forward<Arguments>(arguments)...))
    {
    }
    ~Owned() { delete m_dialog; }
    Owned(const Owned&) = delete;
    Owned& operator=(const Owned&) = delete;

    Dialog* operator->() const { return m_dialog; }
    /// False when it was not accepted, or has gone.
    bool accepted() const { return run(*m_dialog) == QDialog::Accepted && m_dialog; }
    explicit operator bool() const { return !m_dialog.isNull(); }
    Dialog& operator*() const { return *m_dialog; }

private:
    QPointer<Dialog> m_dialog;
};

QStringList chosenFiles(const Owned<QFileDialog>& dialog)
{
    // The desktop's own file dialog cannot be driven by a test; a responder gets Qt's.
    if (responder())
        dialog->setOption(QFileDialog::DontUseNativeDialog);
    if (!dialog.accepted())
        return {};
    return dialog->selectedFiles();
}

QString chosenFile(const Owned<QFileDialog>& dialog)
{
    return chosenFiles(dialog).value(0);
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
    const QString& text, QMessageBox::StandardButtons buttons,
    const QMap<QMessageBox::StandardButton, QString>& labels)
{
    const Owned<QMessageBox> box(icon, title, text, buttons, parent);
    box->setTextFormat(Qt::PlainText); // names of files and signals may look like markup
    for (auto label = labels.begin(); label != labels.end(); ++label)
        box->setButtonText(label.key(), label.value());
    run(*box);
    return box && box->clickedButton() ? box->standardButton(box->clickedButton()) : QMessageBox::NoButton;
}

QString openFile(QWidget* parent, const QString& title, const QString& start, const QString& filter)
{
    const Owned<QFileDialog> dialog(parent, title, start, filter);
    dialog->setFileMode(QFileDialog::ExistingFile);
    return chosenFile(dialog);
}

QStringList openFiles(QWidget* parent, const QString& title, const QString& start, const QString& filter)
{
    const Owned<QFileDialog> dialog(parent, title, start, filter);
    dialog->setFileMode(QFileDialog::ExistingFiles);
    return chosenFiles(dialog);
}

QString saveFile(
    QWidget* parent, const QString& title, const QString& start, const QString& filter, QString* chosenFilter)
{
    const QFileInfo info(start);
    const Owned<QFileDialog> dialog(parent, title, info.isDir() ? start : info.path(), filter);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    if (!info.isDir())
        dialog->selectFile(info.fileName());
    if (chosenFilter && !chosenFilter->isEmpty())
        dialog->selectNameFilter(*chosenFilter);
    const QString file = chosenFile(dialog);
    if (chosenFilter && !file.isEmpty())
        *chosenFilter = dialog->selectedNameFilter();
    return file;
}

QString directory(QWidget* parent, const QString& title, const QString& start)
{
    const Owned<QFileDialog> dialog(parent, title, start);
    dialog->setFileMode(QFileDialog::Directory);
    dialog->setOption(QFileDialog::ShowDirsOnly);
    return chosenFile(dialog);
}

QString text(QWidget* parent, const QString& title, const QString& label, const QString& start)
{
    const Owned<QInputDialog> dialog(parent);
    dialog->setWindowTitle(title);
    dialog->setLabelText(label);
    dialog->setTextValue(start);
    return dialog.accepted() ? dialog->textValue() : QString();
}

QColor color(QWidget* parent, const QColor& start)
{
    const Owned<QColorDialog> dialog(start, parent);
    return dialog.accepted() ? dialog->selectedColor() : QColor();
}

bool print(QWidget* parent, QPrinter* printer, const QLocale& locale)
{
    const Owned<QPrintDialog> dialog(printer, parent);
    dialog->setLocale(locale);
    return dialog.accepted();
}

} // namespace prompt
