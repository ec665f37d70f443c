#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <functional>

class QDialog;

/// Answers every modal dialog of the program in the user's place, and keeps what each one said.
/// A dialog for which no answer is queued fails the test at once; so does an answer that no dialog took.
class ScopedPrompts {
public:
    struct Seen {
        QString title;
        QString text;
        QStringList buttons;
    };

    ScopedPrompts();
    ~ScopedPrompts();
    ScopedPrompts(const ScopedPrompts&) = delete;
    ScopedPrompts& operator=(const ScopedPrompts&) = delete;

    /// Presses the standard button with this number (QMessageBox::Ok, QDialogButtonBox::Cancel, ...).
    void press(int standardButton);
    /// Chooses a file in a file dialog; an empty name cancels. `filter` picks a filter that contains the
    /// text.
    void chooseFile(const QString& file, const QString& filter = QString());
    /// Handles the dialog by hand; the result is that of exec().
    void handle(std::function<int(QDialog&)> answer);

    /// What the dialogs said, in order.
    QList<Seen> seen;

private:
    int respond(QDialog& dialog);
    QList<std::function<int(QDialog&)>> m_answers;
};
