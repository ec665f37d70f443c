#include "support/scopedprompts.h"

#include "prompt/prompt.h"

#include <QAbstractButton>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>

namespace {

QString textOf(const QDialog& dialog)
{
    if (const auto* box = qobject_cast<const QMessageBox*>(&dialog))
        return box->text();
    const auto* label = dialog.findChild<QLabel*>(QStringLiteral("MessageLbl"));
    return label ? label->text() : QString();
}

QAbstractButton* standardButton(QDialog& dialog, int which)
{
    if (auto* box = qobject_cast<QMessageBox*>(&dialog))
        return box->button(static_cast<QMessageBox::StandardButton>(which));
    const auto* box = dialog.findChild<QDialogButtonBox*>();
    return box ? box->button(static_cast<QDialogButtonBox::StandardButton>(which)) : nullptr;
}

} // namespace

ScopedPrompts::ScopedPrompts()
{
    prompt::setResponder([this](QDialog& dialog) { return respond(dialog); });
}

ScopedPrompts::~ScopedPrompts()
{
    prompt::setResponder({});
    if (!m_answers.isEmpty() && !QTest::currentTestFailed())
        QTest::qFail("a queued answer met no dialog", __FILE__, __LINE__);
}

void ScopedPrompts::handle(std::function<int(QDialog&)> answer)
{
    m_answers << std::move(answer);
}

void ScopedPrompts::press(int which)
{
    handle([which](QDialog& dialog) {
        QAbstractButton* button = standardButton(dialog, which);
        if (!button) {
            QTest::qFail("the dialog has no such button", __FILE__, __LINE__);
            return int(QDialog::Rejected);
        }
        dialog.show();
        button->click();
        return dialog.result();
    });
}

void ScopedPrompts::chooseFile(const QString& file, const QString& filter)
{
    handle([file, filter](QDialog& dialog) {
        auto* chooser = qobject_cast<QFileDialog*>(&dialog);
        if (!chooser) {
            QTest::qFail("the dialog is no file dialog", __FILE__, __LINE__);
            return int(QDialog::Rejected);
        }
        if (file.isEmpty())
            return int(QDialog::Rejected);
        for (const QString& name : chooser->nameFilters()) {
            if (!filter.isEmpty() && name.contains(filter)) {
                chooser->selectNameFilter(name);
                break;
            }
        }
        chooser->setDirectory(QFileInfo(file).path());
        chooser->selectFile(file);
        return int(QDialog::Accepted);
    });
}

int ScopedPrompts::respond(QDialog& dialog)
{
    Seen said{dialog.windowTitle(), textOf(dialog), {}};
    for (const QAbstractButton* button : dialog.findChildren<QAbstractButton*>())
        said.buttons << button->text();
    seen << said;
    if (m_answers.isEmpty()) {
        QTest::qFail(qPrintable(QStringLiteral("unexpected dialog: %1 | %2").arg(said.title, said.text)),
            __FILE__, __LINE__);
        return QDialog::Rejected;
    }
    return m_answers.takeFirst()(dialog);
}
