#pragma once

#include <QWidget>

#include <functional>

class QLabel;
class QPlainTextEdit;
class QTimer;
struct Preview;
struct PreviewLine;

/// Shows the first lines of a file as a format cuts them: the fields coloured, the lines at fault marked, and
/// a legend with the count of both below.
class FormatPreview : public QWidget {
    Q_OBJECT
public:
    explicit FormatPreview(QWidget* parent = nullptr);

    QSize sizeHint() const override;
    /// Where the preview comes from. The source gives a text to be shown instead when there is nothing to
    /// cut; an empty one means that it filled the preview.
    void setSource(std::function<QString(Preview*)> source);
    /// Makes the preview anew, a little later, so that a user who types is not held up. A preview that is out
    /// of sight waits until it is shown.
    void refresh();
    /// The same at once.
    void refreshNow();

protected:
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void showText(const QString& text);
    void showLines(const Preview& preview);
    void showLegend(const Preview& preview);
    void appendLine(const PreviewLine& line, int numberWidth);

    QPlainTextEdit* m_text;
    QLabel* m_legend;
    QTimer* m_timer;
    std::function<QString(Preview*)> m_source;
    bool m_outdated = true;
};
