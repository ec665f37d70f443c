#include "load/core/configfile.h"

#include "base/debuglog.h"
#include "base/globals.h"
#include "base/language.h"
#include "base/paths.h"
#include "base/wholefile.h"
#include "load/core/configvalues.h"
#include "load/core/configxml.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStringList>
#include <QVector>

#include <type_traits>

namespace {

/// The most that a list keeps, whatever the file says.
constexpr int longestList = 1000;
/// Of ReadFormat::dataType.
constexpr short lastDataType = 4;

/// Calls visit(block, element, member) for the settings outside WinProp, in the order of writing. With
/// constant settings the members are constant.
template <class S, class Visit> void eachSetting(S& s, Visit visit)
{
    using Flag = std::conditional_t<std::is_const_v<S>, const bool, bool>;
    visit("SelRecTable_prop", "lastUsedRecID", s.lastUsedRecID);
    visit("SelRecTable_prop", "openSavePath", s.openSavePath);
    visit("Globals", "lastUsedDevID", s.lastUsedDevID);
    visit("Globals", "removeF0Vals", configValue::Binary<Flag>{s.removeF0Vals});
    visit("Globals", "updCycle", s.updCycle);
    visit("Globals", "AVAR_numPT_perTau", s.AVAR_numPT_perTau);
    visit("AppUpdate", "Interval", s.Interval);
    visit("AppUpdate", "IsBackupCreating", s.IsBackupCreating);
    visit("AppUpdate", "AutoVersionCheck", s.AutoVersionCheck);
    visit("SaveRecForm_prop", "startPath", s.startPath);
    visit("incConnection_prop", "IP_STR", s.IP_STR);
    visit("incConnection_prop", "DEV_PORT", s.DEV_PORT);
    visit("CGGTTS_prop", "date1", s.cggtts.date1);
    visit("CGGTTS_prop", "date2", s.cggtts.date2);
    visit("CGGTTS_prop", "db_path", s.cggtts.db_path);
    visit("mySQL_prop", "mySQL_dbms", s.mySql.mySQL_dbms);
    visit("mySQL_prop", "mySQL_hostname", s.mySql.mySQL_hostname);
    visit("mySQL_prop", "mySQL_port", s.mySql.mySQL_port);
    visit("mySQL_prop", "mySQL_db_name", s.mySql.mySQL_db_name);
    visit("mySQL_prop", "mySQL_userName", s.mySql.mySQL_userName);
    visit("mySQL_prop", "mySQL_passw", s.mySql.mySQL_passw);
}

/// Calls visit(element, member) for a column format, in the order of writing.
template <class F, class Visit> void eachMember(F& f, Visit visit)
{
    visit("separator", f.separator);
    visit("linesToSkip", f.linesToSkip);
    visit("columnNum_time", f.columnNum_time);
    visit("columnNum_data", f.columnNum_data);
    visit("dateFromFileName_flag", f.dateFromFileName_flag);
    visit("dateFromFileName_format", f.dateFromFileName_format);
    visit("dateFromFileDateTime_flag", f.dateFromFileDateTime_flag);
    visit("columnNum_datetime", f.columnNum_datetime);
    visit("dateFromFileDateTime_format", f.dateFromFileDateTime_format);
    visit("dateFromFileDate_flag", f.dateFromFileDate_flag);
    visit("columnNum_date", f.columnNum_date);
    visit("dateFromFileDate_format", f.dateFromFileDate_format);
    visit("timeFormat_flag", f.timeFormat_flag);
    visit("timeFormat_format", f.timeFormat_format);
    visit("timeUnit_flag", f.timeUnit_flag);
    visit("timeUnit_format", f.timeUnit_format);
    visit("timeStart_flag", f.timeStart_flag);
    visit("timeStart_dateTime", f.timeStart_dateTime);
    visit("interval", f.interval);
    visit("dataType", f.dataType);
    visit("multiplier", f.multiplier);
}

/// Length of a list; the list as it stands keeps to the default when the text is no length.
int listLength(const QString& text, int normal)
{
    int length = normal;
    configValue::take(text, length);
    return length < 1 ? normal : qMin(length, longestList);
}

/// Reads the items of the list at hand; empty ones say nothing.
QStringList readItems(ConfigReader& reader, int longest)
{
    QStringList items;
    while (reader.enter()) {
        QString text;
        const bool isItem = reader.name() == QLatin1String("item");
        if (reader.takeText(&text) && isItem && !text.isEmpty() && items.size() < longest)
            items << text;
    }
    return items;
}

void readColumnFormats(ConfigReader& reader, QMap<QString, ReadFormat>& formats)
{
    while (reader.enter()) {
        const QString formatName = reader.attribute(QStringLiteral("name"));
        if (reader.name() != QLatin1String("item")) {
            reader.skip();
            continue;
        }
        ReadFormat format;
        while (reader.enter()) {
            QString text;
            const QString name = reader.name();
            if (!reader.takeText(&text))
                break;
            eachMember(format, [&](const char* member, auto& value) {
                if (name == QLatin1String(member))
                    configValue::take(text, value);
            });
        }
        format.linesToSkip = qMax(0, format.linesToSkip);
        if (format.dataType < 0 || format.dataType > lastDataType)
            format.dataType = 0;
        if (!reader.xml().hasError() && (formats.size() < longestList || formats.contains(formatName)))
            formats.insert(formatName, format);
    }
}

void readLoading(ConfigReader& reader, OpenGlobForm_winProp& loading)
{
    const OpenGlobForm_winProp normal;
    while (reader.enter()) {
        const QString name = reader.name();
        QString text;
        if (name == QLatin1String("Formats")) {
            loading.frmt_MaxNum =
                listLength(reader.attribute(QStringLiteral("frmt_MaxNum")), normal.frmt_MaxNum);
            loading.formats = readItems(reader, loading.frmt_MaxNum);
        } else if (name == QLatin1String("ASCIIformats")) {
            readColumnFormats(reader, loading.ASCIIformats);
        } else if (name == QLatin1String("openedPathS")) {
            loading.openedPath_MaxNum =
                listLength(reader.attribute(QStringLiteral("openedPath_MaxNum")), normal.openedPath_MaxNum);
            loading.openedPathS = readItems(reader, loading.openedPath_MaxNum);
        } else if (name == QLatin1String("extChannels")) {
            if (reader.takeText(&text))
                configValue::take(text, loading.extChannels);
        } else {
            reader.skip();
        }
    }
}

void readWinProp(ConfigReader& reader, OpenGlobForm_winProp& loading)
{
    while (reader.enter()) {
        if (reader.name() == QLatin1String("OpenGlobForm_winProp"))
            readLoading(reader, loading);
        else
            reader.skip();
    }
}

void readBlock(ConfigReader& reader, Settings& settings)
{
    const QString block = reader.name();
    while (reader.enter()) {
        const QString name = reader.name();
        QString text;
        if (!reader.takeText(&text))
            return;
        eachSetting(settings, [&](const char* ofBlock, const char* element, auto&& value) {
            if (block == QLatin1String(ofBlock) && name == QLatin1String(element))
                configValue::take(text, value);
        });
    }
}

/// What must not be empty gets its default.
void fillEmpty(Settings& settings)
{
    OpenGlobForm_winProp& loading = settings.winProp;
    const OpenGlobForm_winProp normalLoading;
    if (loading.formats.isEmpty()) {
        loading.formats = normalLoading.formats;
        loading.frmt_MaxNum = normalLoading.frmt_MaxNum;
    }
    if (loading.openedPathS.isEmpty()) {
        loading.openedPathS = QStringList{firstOpenedPath()};
        loading.openedPath_MaxNum = normalLoading.openedPath_MaxNum;
    }
    const auto fill = [](QString& text, const QString& normal) { text = text.isEmpty() ? normal : text; };
    const mySQLconnect_prop normal;
    fill(settings.cggtts.db_path, paths::data());
    fill(settings.mySql.mySQL_dbms, normal.mySQL_dbms);
    fill(settings.mySql.mySQL_hostname, normal.mySQL_hostname);
    fill(settings.mySql.mySQL_port, normal.mySQL_port);
    fill(settings.mySql.mySQL_db_name, normal.mySQL_db_name);
}

/// Appends <name>text</name>.
QDomElement addText(QDomDocument& document, QDomElement& parent, const QString& name, const QString& text)
{
    QDomElement element = document.createElement(name);
    if (!text.isEmpty())
        element.appendChild(document.createTextNode(text));
    parent.appendChild(element);
    return element;
}

QDomElement addElement(QDomDocument& document, QDomElement& parent, const char* name)
{
    return addText(document, parent, QLatin1String(name), QString());
}

void addItems(QDomDocument& document, QDomElement& list, const char* number, const QStringList& items)
{
    for (int i = 0; i < items.size(); ++i)
        addText(document, list, QStringLiteral("item"), items.at(i)).setAttribute(QLatin1String(number), i);
}

void addWinProp(QDomDocument& document, QDomElement& root, const OpenGlobForm_winProp& loading)
{
    QDomElement winPropElement = addElement(document, root, "WinProp");
    QDomElement form = addElement(document, winPropElement, "OpenGlobForm_winProp");
    QDomElement templates = addElement(document, form, "Formats");
    templates.setAttribute(QStringLiteral("frmt_MaxNum"), loading.frmt_MaxNum);
    addItems(document, templates, "numb", loading.formats);
    QDomElement columns = addElement(document, form, "ASCIIformats");
    for (auto each = loading.ASCIIformats.cbegin(); each != loading.ASCIIformats.cend(); ++each) {
        QDomElement item = addElement(document, columns, "item");
        item.setAttribute(QStringLiteral("name"), each.key());
        eachMember(each.value(), [&](const char* member, const auto& value) {
            addText(document, item, QLatin1String(member), configValue::textOf(value));
        });
    }
    QDomElement opened = addElement(document, form, "openedPathS");
    opened.setAttribute(QStringLiteral("openedPath_MaxNum"), loading.openedPath_MaxNum);
    addItems(document, opened, "numbP", loading.openedPathS);
    addText(document, form, QStringLiteral("extChannels"), configValue::textOf(loading.extChannels));
}

/// Both stand in a comment that must keep within the head of the file.
QString headText(const QString& text)
{
    QString plain;
    for (const QChar c : text) {
        const bool doubleDash = c == QLatin1Char('-') && plain.endsWith(c); // not allowed in a comment
        if (c > QLatin1Char(' ') && c < QChar(0x7f) && c != QLatin1Char('"') && !doubleDash
            && plain.size() < 40)
            plain += c;
    }
    return plain;
}

/// The children of these are settings or entries; all other elements of the file hold a text.
bool isContainer(const QDomElement& element)
{
    static const QStringList containers{QStringLiteral("xml"), QStringLiteral("RecentRecs"),
        QStringLiteral("WinProp"), QStringLiteral("OpenGlobForm_winProp"), QStringLiteral("Formats"),
        QStringLiteral("ASCIIformats"), QStringLiteral("openedPathS"), QStringLiteral("SelRecTable_prop"),
        QStringLiteral("Globals"), QStringLiteral("AppUpdate"), QStringLiteral("SaveRecForm_prop"),
        QStringLiteral("incConnection_prop"), QStringLiteral("CGGTTS_prop"), QStringLiteral("mySQL_prop")};
    return containers.contains(element.tagName())
        || element.parentNode().nodeName() == QLatin1String("ASCIIformats");
}

/// The child among `known` that stands for `element`: column formats go by their names.
QDomElement counterpart(const QVector<QDomElement>& known, const QDomElement& element)
{
    const QString attribute = QStringLiteral("name");
    const bool byName = element.parentNode().nodeName() == QLatin1String("ASCIIformats");
    for (const QDomElement& each : known) {
        if (each.tagName() == element.tagName()
            && (!byName || each.attribute(attribute) == element.attribute(attribute)))
            return each;
    }
    return {};
}

/// Copies from `before` what `now`, the same element as it is written today, does not know.
void keepUnknown(const QDomElement& before, QDomElement now)
{
    const QDomNamedNodeMap attributes = before.attributes();
    for (int i = 0; i < attributes.count(); ++i) {
        if (!now.hasAttribute(attributes.item(i).nodeName()))
            now.setAttribute(attributes.item(i).nodeName(), attributes.item(i).nodeValue());
    }
    if (!isContainer(now))
        return;
    QVector<QDomElement> known;
    for (QDomElement each = now.firstChildElement(); !each.isNull(); each = each.nextSiblingElement())
        known << each;
    const bool columnFormats = now.tagName() == QLatin1String("ASCIIformats");
    for (QDomElement each = before.firstChildElement(); !each.isNull(); each = each.nextSiblingElement()) {
        const QDomElement same = counterpart(known, each);
        if (!same.isNull())
            keepUnknown(each, same);
        else if (!columnFormats || each.tagName() != QLatin1String("item")) // or else one the user removed
            now.appendChild(now.ownerDocument().importNode(each, true));
    }
}

void tell(QString* error, const QString& reason)
{
    if (error)
        *error = reason;
}

/// Writes all of `in` to a file for the owner alone, in place of an older one.
bool writeAll(QIODevice& in, const QString& file, QString* error)
{
    QSaveFile out(file);
    if (openToReplace(&out)) {
        // A file system without permissions keeps the content all the same.
        out.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner);
        while (!in.atEnd()) {
            const QByteArray piece = in.read(maxConfigSize);
            if (piece.isEmpty())
                out.cancelWriting();
            if (piece.isEmpty() || !writeWhole(&out, piece.constData(), piece.size()))
                break;
        }
    }
    if (out.error() == QFileDevice::NoError && out.commit())
        return true;
    tell(error, out.errorString());
    return false;
}

/// Puts a file that will not survive as a whole aside, before it is overwritten. The first one stays.
bool putAside(QFile& file, QString* error)
{
    const QString aside = file.fileName() + QLatin1String(".damaged");
    if (QFileInfo::exists(aside))
        return true;
    DebugLOG("The configuration file is damaged; it is kept as recfiles.xml.damaged");
    return file.seek(0) && writeAll(file, aside, error);
}

} // namespace

bool readSettings(const QString& file, const QString& localeName, Settings* settings)
{
    QFile in(file);
    // Something else than a file may never end, or never answer.
    const bool opened = QFileInfo(file).isFile() && in.open(QIODevice::ReadOnly);
    settings->winProp.formats.clear();
    settings->winProp.ASCIIformats.clear();
    settings->winProp.openedPathS.clear();
    if (opened) {
        const QString system = localeName.section(QLatin1Char('_'), 0, 0);
        settings->language = language::fromFile(file, localeName, system);
        ConfigReader reader(in.read(maxConfigSize));
        if (reader.enter() && reader.name() == QLatin1String("xml")) {
            while (reader.enter()) {
                if (reader.name() == QLatin1String("WinProp"))
                    readWinProp(reader, settings->winProp);
                else if (reader.name() == QLatin1String("RecentRecs"))
                    reader.skip();
                else
                    readBlock(reader, *settings);
            }
        }
    }
    fillEmpty(*settings);
    return opened;
}

QDomDocument settingsDocument(
    const Settings& settings, const QVector<RecentRecs>& recent, const QDomDocument& before)
{
    QDomDocument document;
    document.appendChild(document.createProcessingInstruction(
        QStringLiteral("xml"), QStringLiteral("version=\"1.0\" encoding=\"Windows-1251\"")));
    document.appendChild(
        document.createComment(language::headComment(headText(Appver), headText(settings.language))));
    QDomElement root = document.createElement(QStringLiteral("xml"));
    document.appendChild(root);
    addRecentRecs(document, root, recent);
    addWinProp(document, root, settings.winProp);
    eachSetting(settings, [&](const char* block, const char* element, const auto& value) {
        QDomElement parent = root.lastChildElement();
        if (parent.tagName() != QLatin1String(block))
            parent = addElement(document, root, block);
        addText(document, parent, QLatin1String(element), configValue::textOf(value));
    });
    if (!before.documentElement().isNull())
        keepUnknown(before.documentElement(), root);
    return document;
}

bool writeSettings(
    const QString& file, const Settings& settings, const QVector<RecentRecs>& recent, QString* error)
{
    QDomDocument before;
    if (QFileInfo::exists(file)) {
        QFile old(file);
        if (!QFileInfo(file).isFile()) {
            tell(error, QCoreApplication::translate("ConfigFile", "Не обычный файл: %1").arg(file));
            return false;
        }
        // Without its content, what it holds of a newer version would be lost.
        if (!old.open(QIODevice::ReadOnly)) {
            tell(error, old.errorString());
            return false;
        }
        const QByteArray content = old.read(maxConfigSize);
        bool damaged = false;
        before = configTree(content, &damaged);
        if (damaged && !content.trimmed().isEmpty() && !putAside(old, error))
            return false;
    }
    QByteArray content = encodeConfig(settingsDocument(settings, recent, before));
    QBuffer in(&content);
    return in.open(QIODevice::ReadOnly) && writeAll(in, file, error);
}
