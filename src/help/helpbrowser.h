#pragma once

#include <QHash>
#include <QImage>
#include <QPointer>
#include <QString>
#include <QStringList>
#include <QTextBrowser>
#include <QUrl>

class QHelpEngine;

/// Shows pages of a help collection. The pages lie at qthelp://kronalys.help/doc/NAME.html in every language,
/// so the history outlives a change of language. What cannot be shown is told by a page of its own.
class helpBrowser : public QTextBrowser {
    Q_OBJECT
public:
    explicit helpBrowser(QWidget* parent = nullptr);

    /// The collection to read from, not owned; null for none. Shows the page at hand anew.
    void setEngine(QHelpEngine* engine);

    /// Address of a page by its name, which may go on with "#anchor"; an empty name means the first page.
    static QUrl pageUrl(const QString& pageName);
    /// The name of the page shown, without suffix and anchor; empty before the first.
    QString pageName() const;

    /// True when the collection has a first page.
    bool hasHelp() const;

    /// Goes to a link of a page: a page of the help is shown, anything else is opened outside, after a
    /// question.
    void followLink(const QUrl& link);

    /// Finds the next or, when `backward`, the previous place with `text` and goes on at the other end. With
    /// `again` unset a place that is selected already counts, too. False when there is none.
    bool findText(const QString& text, bool backward, bool again);
    /// Marks all places with one of the words, which are as searchWords() gives them, and goes to the first.
    /// The marks last until the next page.
    void markWords(const QStringList& words);

    void zoomBy(int steps);
    void resetZoom();

    QVariant loadResource(int type, const QUrl& name) override;

public slots:
    /// Reads the page at hand anew and stays at its place.
    void reload() override;

protected:
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    QByteArray fileData(const QUrl& url) const;
    QString pageHtml(const QUrl& url) const;
    QString missingHelpHtml() const;
    QImage fitted(const QImage& picture) const;
    void refitPictures();

    QPointer<QHelpEngine> m_engine;
    QHash<QUrl, QImage> m_pictures; // of the page shown, in their own size
    double m_ownFontSize = 0.0; // points
};
