#include "load/core/recentrecsparser.h"

#include "load/core/configvalues.h"
#include "load/core/configxml.h"

#include <QFile>
#include <QFileInfo>
#include <QXmlInputSource>
#include <QXmlParseException>
#include <QXmlSimpleReader>

#include <algorithm>

QT_WARNING_PUSH
QT_WARNING_DISABLE_DEPRECATED

bool RecentRecsParser::startDocument()
{
    setRecentRecords({});
    m_error.clear();
    m_depth = 0;
    m_inList = m_inEntry = false;
    return true;
}

bool RecentRecsParser::startElement(
    const QString&, const QString&, const QString& qName, const QXmlAttributes&)
{
    m_text.clear();
    if (qName == QLatin1String("RecentRecs")) {
        m_inList = true;
    } else if (m_inList && qName == QLatin1String("nom")) {
        m_inEntry = true;
        m_entry = RecentRecs();
    }
    return ++m_depth <= maxConfigDepth;
}

bool RecentRecsParser::endElement(const QString&, const QString&, const QString& qName)
{
    --m_depth;
    if (qName == QLatin1String("RecentRecs")) {
        m_inList = m_inEntry = false;
    } else if (m_inEntry && qName == QLatin1String("nom")) {
        m_inEntry = false;
        keepEntry();
    } else if (m_inEntry) {
        take(qName);
    }
    m_text.clear();
    return true;
}

/// The reader has decoded the text by the declaration of the file, which is that of Windows-1251.
void RecentRecsParser::take(const QString& name)
{
    if (name == QLatin1String("type"))
        configValue::take(m_text, m_entry.type);
    else if (name == QLatin1String("str"))
        configValue::take(m_text, m_entry.str);
    else if (name == QLatin1String("dir"))
        m_entry.dir = QDir(m_text);
    else if (name == QLatin1String("start"))
        configValue::take(m_text, m_entry.start);
    else if (name == QLatin1String("stop"))
        configValue::take(m_text, m_entry.stop);
    else if (name == QLatin1String("num"))
        configValue::take(m_text, m_entry.num);
    else if (name == QLatin1String("ch"))
        configValue::take(m_text, m_entry.ch);
    else if (name == QLatin1String("format"))
        configValue::take(m_text, m_entry.format);
    else if (name == QLatin1String("devType"))
        configValue::take(m_text, m_entry.devType);
    else if (name == QLatin1String("interval"))
        configValue::take(m_text, m_entry.interval);
    else if (name == QLatin1String("multiplier"))
        configValue::take(m_text, m_entry.multiplier);
    else if (name == QLatin1String("column"))
        configValue::take(m_text, m_entry.column);
    else if (name == QLatin1String("band"))
        configValue::take(m_text, m_entry.band);
    else if (name == QLatin1String("ref"))
        configValue::take(m_text, m_entry.ref);
    else if (name == QLatin1String("meas"))
        configValue::take(m_text, m_entry.meas);
    // "lenFormat", of an older form of the file, tells the length of "format" and is not needed.
}

void RecentRecsParser::keepEntry()
{
    if (NumRecentRecs == maxRecentRecs)
        return;
    std::move_backward(RecRecs, RecRecs + NumRecentRecs, RecRecs + NumRecentRecs + 1);
    RecRecs[0] = m_entry;
    ++NumRecentRecs;
    nextRecRecsIndex = NumRecentRecs % maxRecentRecs;
}

bool RecentRecsParser::characters(const QString& text)
{
    m_text += text;
    return true;
}

bool RecentRecsParser::startDTD(const QString&, const QString&, const QString&)
{
    return false;
}

bool RecentRecsParser::fatalError(const QXmlParseException& exception)
{
    m_error = QStringLiteral("Line:%1, Column:%2, Messange:%3")
                  .arg(QString::number(exception.lineNumber()), QString::number(exception.columnNumber()),
                      exception.message());
    return false;
}

QString RecentRecsParser::errorString() const
{
    return m_error.isEmpty() ? QStringLiteral("Error!!!!") : m_error;
}

bool readRecentRecs(const QString& file, QString* error)
{
    QFile in(file);
    if (!QFileInfo(file).isFile() || !in.open(QIODevice::ReadOnly)) {
        setRecentRecords({});
        *error = in.errorString();
        return false;
    }
    QXmlInputSource source;
    source.setData(in.read(maxConfigSize));
    RecentRecsParser parser;
    QXmlSimpleReader reader;
    reader.setContentHandler(&parser);
    reader.setErrorHandler(&parser);
    reader.setLexicalHandler(&parser);
    if (reader.parse(&source))
        return true;
    *error = parser.errorString();
    return false;
}

QT_WARNING_POP
