#include "help/helpbrowser.h"

#include "help/core/pagesearch.h"
#include "prompt/prompt.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QDir>
#include <QEvent>
#include <QHelpEngine>
#include <QPalette>
#include <QResizeEvent>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QWheelEvent>

namespace {

const char* const helpScheme = "qthelp";
const char* const helpBase = "qthelp://kronalys.help/doc/";
const char* const helpStyle = "qthelp://kronalys.help/doc/help.css";

constexpr double smallestFont = 6.0; // points
constexpr double largestFont = 40.0;

bool isHelp(const QUrl& url)
{
    return url.scheme() == QLatin1String(helpScheme);
}

QString htmlPage(const QString& title, const QString& paragraphs)
{
    return QStringLiteral("<html><head><title>%1</title></head><body><h1>%1</h1>%2</body></html>")
        .arg(title.toHtmlEscaped(), paragraphs);
}

QString paragraph(const QString& html)
{
    return QStringLiteral("<p>%1</p>").arg(html);
}

} // namespace

helpBrowser::helpBrowser(QWidget* parent)
    : QTextBrowser(parent)
    , m_ownFontSize(font().pointSizeF())
{
    setOpenLinks(false); // followLink() does
    connect(this, &QTextBrowser::anchorClicked, this, &helpBrowser::followLink);
    document()->setDocumentMargin(14);
    // Paper in every desktop style: help.css has no other set of colours for a dark one.
    QPalette paper = palette();
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
        paper.setColor(group, QPalette::Base, Qt::white);
        paper.setColor(group, QPalette::Text, QColor(0x20, 0x20, 0x20));
        paper.setColor(group, QPalette::Link, QColor(0x0b, 0x57, 0xa4));
    }
    setPalette(paper);
}

void helpBrowser::setEngine(QHelpEngine* engine)
{
    m_engine = engine;
    reload();
}

QUrl helpBrowser::pageUrl(const QString& pageName)
{
    const int hash = pageName.indexOf(QLatin1Char('#'));
    const QString page = pageName.left(hash);
    QUrl url(QLatin1String(helpBase) + (page.isEmpty() ? QStringLiteral("index") : page)
        + QStringLiteral(".html"));
    if (hash >= 0)
        url.setFragment(pageName.mid(hash + 1));
    return url;
}

QString helpBrowser::pageName() const
{
    QString name = source().fileName();
    const QString suffix = QStringLiteral(".html");
    if (name.endsWith(suffix))
        name.chop(suffix.size());
    return name;
}

bool helpBrowser::hasHelp() const
{
    return !fileData(pageUrl(QString())).isEmpty();
}

QByteArray helpBrowser::fileData(const QUrl& url) const
{
    return m_engine ? m_engine->fileData(url.adjusted(QUrl::RemoveFragment)) : QByteArray();
}

void helpBrowser::followLink(const QUrl& link)
{
    if (isHelp(link)) {
        setSource(link);
        return;
    }
    const auto answer = prompt::message(this, QMessageBox::Question, tr("Внешняя ссылка"),
        tr("Ссылка ведёт за пределы справки:\n%1\nОткрыть её другой программой?").arg(link.toDisplayString()),
        QMessageBox::Yes | QMessageBox::No);
    if (answer == QMessageBox::Yes && !QDesktopServices::openUrl(link))
        prompt::message(this, QMessageBox::Warning, tr("Внешняя ссылка"),
            tr("Не удалось открыть ссылку:\n%1").arg(link.toDisplayString()));
}

QString helpBrowser::missingHelpHtml() const
{
    const QString place = m_engine
        ? m_engine->collectionFile()
        : QDir::cleanPath(QCoreApplication::applicationDirPath() + QStringLiteral("/doc"));
    QString text =
        paragraph(tr("Файлы справки не найдены или повреждены. Остальные функции программы от них не "
                     "зависят."))
        + paragraph(tr("Файлы справки ожидались здесь:"))
        + paragraph(QStringLiteral("<code>%1</code>").arg(QDir::toNativeSeparators(place).toHtmlEscaped()))
        + paragraph(
            tr("Установите программу заново или скопируйте её папку «doc» в это место, затем запустите "
               "программу снова."));
    if (m_engine && !m_engine->error().isEmpty())
        text += paragraph(tr("Сообщение: %1").arg(m_engine->error().toHtmlEscaped()));
    return htmlPage(tr("Справка недоступна"), text);
}

QString helpBrowser::pageHtml(const QUrl& url) const
{
    const QByteArray data = fileData(url);
    if (!data.isEmpty())
        return QString::fromUtf8(data);
    if (!hasHelp())
        return missingHelpHtml();
    return htmlPage(tr("Страница не найдена"),
        paragraph(tr("В справке нет страницы «%1».").arg(url.fileName().toHtmlEscaped()))
            + paragraph(QStringLiteral("<a href=\"index.html\">%1</a>").arg(tr("К началу справки"))));
}

QVariant helpBrowser::loadResource(int type, const QUrl& name)
{
    // Pages name their style and pictures relative to the one folder that all of them lie in.
    const QUrl url = QUrl(QLatin1String(helpBase)).resolved(name);
    if (!isHelp(url))
        return {}; // a page brings nothing in from outside
    if (type == QTextDocument::HtmlResource) {
        m_pictures.clear();
        setExtraSelections({});
        // Qt follows a page's own <link> only where that names its type.
        document()->setDefaultStyleSheet(QString::fromUtf8(fileData(QUrl(QLatin1String(helpStyle)))));
        return pageHtml(url);
    }
    if (type != QTextDocument::ImageResource)
        return fileData(url);
    const QImage picture = QImage::fromData(fileData(url));
    if (picture.isNull())
        return {};
    m_pictures.insert(name, picture);
    return fitted(picture);
}

/// At most as wide as the text.
QImage helpBrowser::fitted(const QImage& picture) const
{
    const int width = viewport()->width() - 2 * int(document()->documentMargin());
    return width < 1 || picture.width() <= width ? picture
                                                 : picture.scaledToWidth(width, Qt::SmoothTransformation);
}

void helpBrowser::refitPictures()
{
    for (auto picture = m_pictures.constBegin(); picture != m_pictures.constEnd(); ++picture)
        document()->addResource(QTextDocument::ImageResource, picture.key(), fitted(picture.value()));
    if (!m_pictures.isEmpty())
        document()->markContentsDirty(0, document()->characterCount());
}

void helpBrowser::reload()
{
    if (source().isEmpty())
        return;
    const int place = verticalScrollBar()->value();
    QTextBrowser::reload();
    verticalScrollBar()->setValue(place);
}

bool helpBrowser::findText(const QString& text, bool backward, bool again)
{
    const QTextCursor before = textCursor();
    if (text.isEmpty())
        return false;
    const QTextDocument::FindFlags flags =
        backward ? QTextDocument::FindBackward : QTextDocument::FindFlags();
    QTextCursor start = before;
    if (!again)
        start.setPosition(before.selectionStart());
    QTextCursor found = document()->find(text, start, flags);
    if (found.isNull()) {
        start.movePosition(backward ? QTextCursor::End : QTextCursor::Start);
        found = document()->find(text, start, flags);
    }
    if (found.isNull()) {
        start = before;
        start.setPosition(before.selectionStart());
        setTextCursor(start);
        return false;
    }
    setTextCursor(found);
    ensureCursorVisible();
    return true;
}

void helpBrowser::markWords(const QStringList& words)
{
    QList<QTextEdit::ExtraSelection> marks;
    QTextCursor first;
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        const QString text = foldedText(block.text());
        for (const QString& word : words) {
            for (int at = text.indexOf(word); at >= 0; at = text.indexOf(word, at + word.size())) {
                QTextEdit::ExtraSelection mark;
                mark.cursor = QTextCursor(block);
                mark.cursor.setPosition(block.position() + at);
                if (first.isNull())
                    first = mark.cursor;
                mark.cursor.setPosition(block.position() + at + word.size(), QTextCursor::KeepAnchor);
                mark.format.setBackground(QColor(0xff, 0xe0, 0x80));
                marks << mark;
            }
        }
    }
    setExtraSelections(marks);
    if (!first.isNull())
        setTextCursor(first);
}

void helpBrowser::zoomBy(int steps)
{
    QFont changed = font();
    changed.setPointSizeF(qBound(smallestFont, changed.pointSizeF() + steps, largestFont));
    setFont(changed);
}

void helpBrowser::resetZoom()
{
    QFont changed = font();
    changed.setPointSizeF(m_ownFontSize);
    setFont(changed);
}

void helpBrowser::changeEvent(QEvent* event)
{
    QTextBrowser::changeEvent(event);
    // The pages that tell what is missing are in the language of the interface.
    if (event->type() == QEvent::LanguageChange)
        reload();
}

void helpBrowser::resizeEvent(QResizeEvent* event)
{
    QTextBrowser::resizeEvent(event);
    refitPictures();
}

void helpBrowser::wheelEvent(QWheelEvent* event)
{
    if (!(event->modifiers() & Qt::ControlModifier)) {
        QTextBrowser::wheelEvent(event);
        return;
    }
    zoomBy(event->angleDelta().y() > 0 ? 1 : -1);
    event->accept();
}
