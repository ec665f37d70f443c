#include "help/core/pagesearch.h"

#include <QChar>
#include <QRegularExpression>

#include <algorithm>
#include <utility>
#include <vector>

namespace {

/// Letters of the text shown before and after the first word of an excerpt.
constexpr int before = 40;
constexpr int after = 100;

/// A Russian word of at least this many letters is looked for without its ending.
constexpr int longWord = 6;
constexpr int endingLength = 2;

bool isCyrillic(QChar letter)
{
    return letter.script() == QChar::Script_Cyrillic;
}

bool holdsAll(const QString& folded, const QStringList& words)
{
    return std::all_of(
        words.begin(), words.end(), [&folded](const QString& word) { return folded.contains(word); });
}

/// One line from some letters before `at` on, begun and ended between words.
QString excerptAt(const QString& text, int at)
{
    int from = qMax(0, at - before);
    if (from > 0)
        from = text.lastIndexOf(QLatin1Char(' '), from) + 1;
    int to = qMin(text.size(), at + after);
    if (to < text.size()) {
        const int blank = text.indexOf(QLatin1Char(' '), to);
        to = blank < 0 ? text.size() : blank;
    }
    const QString ellipsis(QChar(0x2026));
    return (from > 0 ? ellipsis : QString()) + text.mid(from, to - from)
        + (to < text.size() ? ellipsis : QString());
}

} // namespace

QString foldedText(const QString& text)
{
    // Letter by letter, so that a position in the folded text is one in the text itself.
    QString folded = text;
    for (QChar& letter : folded) {
        letter = letter.toLower();
        if (letter == QChar(0x0451)) // ё
            letter = QChar(0x0435); // е
    }
    return folded;
}

QStringList searchWords(const QString& query)
{
    static const QRegularExpression gap(
        QStringLiteral("[^\\w.+-]+"), QRegularExpression::UseUnicodePropertiesOption);
    QStringList words;
    for (QString word : foldedText(query).split(gap, Qt::SkipEmptyParts)) {
        while (word.endsWith(QLatin1Char('.')))
            word.chop(1);
        if (word.size() >= longWord && std::all_of(word.begin(), word.end(), isCyrillic))
            word.chop(endingLength);
        const bool readable =
            std::any_of(word.begin(), word.end(), [](QChar letter) { return letter.isLetterOrNumber(); });
        if (readable && !words.contains(word))
            words << word;
    }
    return words;
}

QVector<HelpHit> searchPages(const QVector<HelpText>& pages, const QString& query)
{
    const QStringList words = searchWords(query);
    if (words.isEmpty())
        return {};
    std::vector<std::pair<int, HelpHit>> found; // with its rank, the higher the better
    for (const HelpText& page : pages) {
        const QString text = page.text.simplified();
        const QString folded = foldedText(text);
        const QString title = foldedText(page.title);
        if (!holdsAll(title + QLatin1Char('\n') + folded, words))
            continue;
        constexpr int titleRank = 1000000;
        int rank = holdsAll(title, words) ? titleRank : 0;
        for (const QString& word : words)
            rank += folded.count(word);
        found.emplace_back(
            rank, HelpHit{page.page, page.title, excerptAt(text, qMax(0, folded.indexOf(words.first())))});
    }
    std::stable_sort(
        found.begin(), found.end(), [](const auto& a, const auto& b) { return a.first > b.first; });
    QVector<HelpHit> hits;
    for (auto& hit : found)
        hits << std::move(hit.second);
    return hits;
}
