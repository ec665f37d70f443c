#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

/// One page of the help as plain text.
struct HelpText {
    QString page; ///< its name, without the suffix
    QString title;
    QString text;
};

/// A page that holds all the words looked for.
struct HelpHit {
    QString page;
    QString title;
    QString excerpt; ///< the text around the first word, one line
};

/// Lower case, with "ё" as "е".
QString foldedText(const QString& text);

/// The folded words of a query, each at most once. A long Russian word loses its last two letters, so that it
/// is found in its other forms, too.
QStringList searchWords(const QString& query);

/// The pages that hold every word, those with all words in the title first, then by the number of times the
/// words occur. A query without words gives none.
QVector<HelpHit> searchPages(const QVector<HelpText>& pages, const QString& query);
