#include "help/core/pagesearch.h"
#include "helpcopy.h"

#include <QDir>
#include <QFile>
#include <QHelpEngineCore>
#include <QHelpLink>
#include <QPair>
#include <QRegularExpression>
#include <QTest>
#include <QUrl>
#include <QXmlStreamReader>

#include <map>

namespace {

QString read(const QString& file)
{
    QFile source(file);
    return source.open(QIODevice::ReadOnly) ? QString::fromUtf8(source.readAll()) : QString();
}

QStringList captured(const QString& text, const char* pattern)
{
    QStringList all;
    auto match = QRegularExpression(QLatin1String(pattern)).globalMatch(text);
    while (match.hasNext())
        all << match.next().captured(1);
    return all;
}

/// What the project of one language tells.
struct Project {
    QStringList contents; ///< pages, in the order of the tree
    QStringList titles; ///< of the tree's entries
    QList<QPair<QString, QString>> index; ///< entries and their targets
    QString error;
};

Project parsed(const QString& file)
{
    Project project;
    QXmlStreamReader reader(read(file));
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement)
            continue;
        const QString target = reader.attributes().value(QLatin1String("ref")).toString();
        if (reader.name() == QLatin1String("section")) {
            project.contents << target;
            project.titles << reader.attributes().value(QLatin1String("title")).toString();
        } else if (reader.name() == QLatin1String("keyword")) {
            project.index << qMakePair(reader.attributes().value(QLatin1String("name")).toString(), target);
        }
    }
    project.error = reader.errorString();
    return project;
}

QStringList sorted(QStringList list)
{
    list.sort();
    return list;
}

} // namespace

class TestHelpPages : public QObject {
    Q_OBJECT
private slots:
    void initTestCase();
    void contentsNameEveryPage_data() { languages(); }
    void contentsNameEveryPage();
    void indexLeadsToItsSubject_data() { languages(); }
    void indexLeadsToItsSubject();
    void linksLeadSomewhere_data() { languages(); }
    void linksLeadSomewhere();
    void picturesExist_data() { languages(); }
    void picturesExist();
    void languagesAgree();
    void collectionGivesPages_data() { languages(); }
    void collectionGivesPages();

private:
    static void languages();
    QString folder(const QString& language) const { return m_root + "/docs/help/" + language; }
    bool leads(const QString& language, const QString& from, const QString& link) const;

    QString m_root;
    std::map<QString, std::map<QString, QString>> m_pages; // text by language and file name
};

void TestHelpPages::languages()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("name");
    QTest::newRow("ru") << "ru"
                        << "KronalysHelp";
    QTest::newRow("en") << "en"
                        << "KronalysHelp_english";
}

void TestHelpPages::initTestCase()
{
    m_root = qEnvironmentVariable("KRONALYS_SOURCE");
    for (const QString& language : {QStringLiteral("ru"), QStringLiteral("en")}) {
        const QDir dir(folder(language));
        for (const QString& page : dir.entryList({"*.html"}))
            m_pages[language][page] = read(dir.filePath(page));
        QVERIFY2(!m_pages[language].empty(), qPrintable(dir.path()));
    }
}

void TestHelpPages::contentsNameEveryPage()
{
    QFETCH(QString, language);
    QFETCH(QString, name);
    const Project project = parsed(folder(language) + '/' + name + ".qhp");
    QCOMPARE(project.error, QString());
    QStringList files;
    for (const auto& page : m_pages[language]) {
        files << page.first;
        const QStringList title = captured(page.second, "<title>([^<]+)</title>");
        QVERIFY2(
            title.size() == 1 && captured(page.second, "<h1>([^<]+)</h1>") == title, qPrintable(page.first));
        QCOMPARE(project.titles.value(project.contents.indexOf(page.first)), title.first());
    }
    QCOMPARE(sorted(project.contents), sorted(files)); // every one of them, and once
}

void TestHelpPages::indexLeadsToItsSubject()
{
    QFETCH(QString, language);
    QFETCH(QString, name);
    const Project project = parsed(folder(language) + '/' + name + ".qhp");
    QVERIFY(!project.index.isEmpty());
    for (const auto& entry : project.index) {
        const QString told = entry.first + " -> " + entry.second;
        QVERIFY2(leads(language, QString(), entry.second), qPrintable(told));
        const QString text = foldedText(m_pages[language][QUrl(entry.second).path()]);
        for (const QString& word : searchWords(entry.first))
            QVERIFY2(text.contains(word), qPrintable(told + ": " + word));
    }
}

/// Whether a link on the page `from` leads to a page and a place in it, or openly to the outside.
bool TestHelpPages::leads(const QString& language, const QString& from, const QString& link) const
{
    const QUrl url(link);
    if (url.scheme() == QLatin1String("https"))
        return true;
    const auto& pages = m_pages.at(language);
    const auto page = pages.find(url.path().isEmpty() ? from : url.path());
    if (!url.scheme().isEmpty() || page == pages.end())
        return false;
    return !url.hasFragment()
        || captured(page->second, "\\b(?:id|name)=\"([^\"]+)\"").contains(url.fragment(QUrl::FullyDecoded));
}

void TestHelpPages::linksLeadSomewhere()
{
    QFETCH(QString, language);
    QStringList dead;
    int links = 0;
    for (const auto& page : m_pages[language]) {
        for (const QString& link : captured(page.second, "<a\\s[^>]*href=\"([^\"]*)\"")) {
            ++links;
            if (!leads(language, page.first, link))
                dead << page.first + ": " + link;
        }
    }
    QVERIFY(links > 0);
    QCOMPARE(dead, QStringList());
}

void TestHelpPages::picturesExist()
{
    QFETCH(QString, language);
    for (const auto& page : m_pages[language]) {
        for (const QString& picture : captured(page.second, "<img\\s[^>]*src=\"([^\"]*)\"")) {
            const QString file = m_root + "/docs/screenshots/" + language + '/' + picture.section('/', 1);
            QVERIFY2(picture.startsWith("images/") && QFile::exists(file),
                qPrintable(page.first + ": " + picture));
        }
    }
}

void TestHelpPages::languagesAgree()
{
    QStringList pages[2], pictures[2], anchors[2], order[2];
    int at = 0;
    for (const QString& language : {QStringLiteral("ru"), QStringLiteral("en")}) {
        for (const auto& page : m_pages[language]) {
            pages[at] << page.first;
            for (const QString& anchor : captured(page.second, "\\bid=\"([^\"]+)\""))
                anchors[at] << page.first + '#' + anchor;
            for (const QString& picture : captured(page.second, "<img\\s[^>]*src=\"([^\"]*)\""))
                pictures[at] << page.first + ": " + picture;
        }
        order[at] =
            parsed(folder(language) + (at ? "/KronalysHelp_english.qhp" : "/KronalysHelp.qhp")).contents;
        ++at;
    }
    QCOMPARE(pages[0], pages[1]);
    QCOMPARE(anchors[0], anchors[1]);
    QCOMPARE(pictures[0], pictures[1]);
    QCOMPARE(order[0], order[1]);
}

void TestHelpPages::collectionGivesPages()
{
    QFETCH(QString, language);
    QFETCH(QString, name);
    const HelpCopy copy(name);
    QHelpEngineCore engine(copy.collection());
    QVERIFY2(engine.setupData(), qPrintable(engine.error()));
    for (const auto& page : m_pages[language]) {
        const QByteArray given = engine.fileData(QUrl("qthelp://kronalys.help/doc/" + page.first));
        QCOMPARE(QString::fromUtf8(given), page.second);
        for (const QString& picture : captured(page.second, "<img\\s[^>]*src=\"([^\"]*)\""))
            QVERIFY2(!engine.fileData(QUrl("qthelp://kronalys.help/doc/" + picture)).isEmpty(),
                qPrintable(picture));
    }
    QVERIFY(!engine.fileData(QUrl("qthelp://kronalys.help/doc/help.css")).isEmpty());
    QCOMPARE(engine.documentsForIdentifier("adev").value(0).url.fileName(), QStringLiteral("stat-adev.html"));
}

QTEST_MAIN(TestHelpPages)
#include "tst_helppages.moc"
