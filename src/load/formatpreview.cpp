#include "load/formatpreview.h"

#include "load/core/preview.h"

#include <QColor>
#include <QEvent>
#include <QFontDatabase>
#include <QLabel>
#include <QPlainTextEdit>
#include <QTextCharFormat>
#include <QTextCursor>
#include <QTimer>
#include <QVBoxLayout>

#include <iterator>

namespace {

constexpr int refreshDelay = 200; // ms

// Pale grounds under black letters, told apart in a dark theme and by the colour-blind too.
const QColor timeGround(0xbf, 0xdb, 0xf7);
const QColor dateGround(0xdc, 0xcb, 0xf2);
const QColor dataGrounds[] = {{0xc4, 0xe8, 0xc2}, {0xf7, 0xe3, 0xa8}, {0xb5, 0xe3, 0xdf}, {0xf5, 0xcc, 0xe0}};
const QColor badGround(0xf4, 0x9a, 0x92);

QColor groundOf(const PreviewField& field)
{
    switch (field.kind) {
    case PreviewField::Time:
        return timeGround;
    case PreviewField::DateTime:
        return dateGround;
    case PreviewField::Data:
        return dataGrounds[size_t(qMax(0, field.index)) % std::size(dataGrounds)];
    case PreviewField::Skipped:
        break;
    }
    return {};
}

bool hasField(const Preview& preview, PreviewField::Kind kind)
{
    for (const PreviewLine& line : preview.lines) {
        for (const PreviewField& field : line.fields) {
            if (field.kind == kind)
                return true;
        }
    }
    return false;
}

QString swatch(const QColor& ground, const QString& text)
{
    return QStringLiteral("<span style=\"background-color:%1;color:#000000\">&nbsp;%2&nbsp;</span> ")
        .arg(ground.name(), text.toHtmlEscaped());
}

} // namespace

FormatPreview::FormatPreview(QWidget* parent)
    : QWidget(parent)
    , m_text(new QPlainTextEdit(this))
    , m_legend(new QLabel(this))
    , m_timer(new QTimer(this))
{
    m_text->setObjectName(QStringLiteral("preview_text"));
    m_text->setReadOnly(true);
    m_text->setUndoRedoEnabled(false);
    m_text->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_text->setTabChangesFocus(true);
    m_text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_text->setAcceptDrops(false);
    m_text->setMinimumHeight(m_text->fontMetrics().lineSpacing() * 5 / 2);
    m_legend->setObjectName(QStringLiteral("preview_legend"));
    m_legend->setTextFormat(Qt::RichText);
    m_legend->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(2);
    column->addWidget(m_text, 1);
    column->addWidget(m_legend);
    setFocusProxy(m_text);
    m_timer->setSingleShot(true);
    m_timer->setInterval(refreshDelay);
    connect(m_timer, &QTimer::timeout, this, &FormatPreview::refreshNow);
}

QSize FormatPreview::sizeHint() const
{
    constexpr int lines = 6; // of text
    return QSize(200, m_text->fontMetrics().lineSpacing() * lines + m_legend->fontMetrics().height());
}

void FormatPreview::setSource(std::function<QString(Preview*)> source)
{
    m_source = std::move(source);
}

void FormatPreview::refresh()
{
    m_outdated = true;
    if (isVisible())
        m_timer->start();
}

void FormatPreview::refreshNow()
{
    m_timer->stop();
    m_outdated = false;
    Preview preview;
    const QString instead = m_source ? m_source(&preview) : QString();
    if (!instead.isEmpty())
        showText(instead);
    else if (!preview.error.isEmpty())
        showText(tr("Файл нельзя прочитать: %1").arg(preview.error));
    else if (preview.lines.isEmpty())
        showText(preview.formatFault ? tr("В формате ошибка.") : tr("Файл пуст."));
    else
        showLines(preview);
}

void FormatPreview::showText(const QString& text)
{
    m_legend->clear();
    m_legend->setToolTip(QString());
    m_text->setLineWrapMode(QPlainTextEdit::WidgetWidth);
    m_text->setPlainText(text);
}

void FormatPreview::showLines(const Preview& preview)
{
    m_text->clear();
    m_text->setLineWrapMode(QPlainTextEdit::NoWrap);
    const int numberWidth = QString::number(preview.lines.constLast().number).size();
    for (const PreviewLine& line : preview.lines)
        appendLine(line, numberWidth);
    m_text->moveCursor(QTextCursor::Start);
    showLegend(preview);
}

void FormatPreview::appendLine(const PreviewLine& line, int numberWidth)
{
    QTextCursor cursor(m_text->document());
    cursor.movePosition(QTextCursor::End);
    if (!m_text->document()->isEmpty())
        cursor.insertBlock();
    const QColor faint = palette().color(QPalette::Disabled, QPalette::Text);
    QTextCharFormat plain, weak, ground;
    weak.setForeground(faint);
    ground.setForeground(Qt::black);
    const bool bad = line.kind == PreviewLine::Bad;
    QTextCharFormat mark = weak;
    if (bad) {
        mark.setBackground(badGround);
        mark.setForeground(Qt::black);
    }
    cursor.insertText(QStringLiteral("%1%2").arg(line.number, numberWidth).arg(bad ? '!' : ' '), mark);
    cursor.insertText(QStringLiteral(" "), plain);
    int at = 0;
    for (const PreviewField& field : line.fields) {
        const QColor color = field.bad ? badGround : groundOf(field);
        if (!color.isValid() || field.begin < at)
            continue;
        cursor.insertText(line.text.mid(at, field.begin - at), weak);
        ground.setBackground(color);
        ground.setFontUnderline(field.bad);
        cursor.insertText(line.text.mid(field.begin, field.length), ground);
        at = field.begin + field.length;
    }
    cursor.insertText(line.text.mid(at), weak);
}

void FormatPreview::showLegend(const Preview& preview)
{
    if (preview.formatFault) {
        m_legend->setText(swatch(badGround, tr("В формате ошибка.")));
        return;
    }
    QString legend;
    if (hasField(preview, PreviewField::Time))
        legend += swatch(timeGround, tr("время"));
    if (hasField(preview, PreviewField::DateTime))
        legend += swatch(dateGround, tr("дата"));
    if (hasField(preview, PreviewField::Data))
        legend += swatch(dataGrounds[0], tr("данные"));
    if (preview.badLines() > 0)
        legend += swatch(badGround, tr("! ошибки: %1").arg(preview.badLines()));
    //: lines that fit the format, among those shown
    legend += tr("Годных строк: %1").arg(preview.goodLines());
    m_legend->setText(legend);
    m_legend->setToolTip(preview.more ? tr("Показано начало файла") : QString());
}

void FormatPreview::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange || event->type() == QEvent::PaletteChange)
        refresh();
    QWidget::changeEvent(event);
}

void FormatPreview::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (m_outdated)
        refreshNow();
}
