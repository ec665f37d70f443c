#pragma once

#include <QString>
#include <QWidget>

class QLabel;
class QLineEdit;
class QToolButton;

/// The line below a page in which text of the page is looked for. Whoever owns it does the finding and calls
/// setFound().
class FindBar : public QWidget {
    Q_OBJECT
public:
    explicit FindBar(QWidget* parent = nullptr);

    /// Shows the line with the keyboard in it, its text selected.
    void start();
    /// Tells whether the text was found.
    void setFound(bool found);
    QString text() const;

signals:
    /// `again` is unset while the text is being typed: the place at hand may still fit.
    void wanted(const QString& text, bool backward, bool again);
    void closed();

protected:
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void retranslate();
    void finish();

    QLabel* m_label;
    QLineEdit* m_field;
    QToolButton* m_previous;
    QToolButton* m_next;
    QToolButton* m_close;
    QLabel* m_result;
};
