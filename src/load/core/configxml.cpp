#include "load/core/configxml.h"

#include <QMap>
#include <QTextCodec>
#include <QVector>
#include <QXmlStreamAttributes>

ConfigReader::ConfigReader(const QByteArray& content)
    : m_xml(content)
{
    m_xml.setNamespaceProcessing(false);
}

QXmlStreamReader::TokenType ConfigReader::next()
{
    const QXmlStreamReader::TokenType token = m_xml.readNext();
    if (token == QXmlStreamReader::DTD)
        fail(QStringLiteral("a document type"));
    else if (token == QXmlStreamReader::StartElement && ++m_depth > maxConfigDepth)
        fail(QStringLiteral("nested too deep"));
    else if (token == QXmlStreamReader::EndElement)
        --m_depth;
    return m_xml.hasError() ? QXmlStreamReader::Invalid : token;
}

bool ConfigReader::enter()
{
    while (!m_xml.atEnd()) {
        const QXmlStreamReader::TokenType token = next();
        if (token == QXmlStreamReader::StartElement)
            return true;
        if (token == QXmlStreamReader::EndElement)
            return false;
    }
    return false;
}

void ConfigReader::skip()
{
    const int outside = m_depth - 1;
    while (m_depth > outside && !m_xml.atEnd())
        next();
}

bool ConfigReader::takeText(QString* text)
{
    QString read;
    const int inside = m_depth;
    while (!m_xml.atEnd()) {
        const QXmlStreamReader::TokenType token = next();
        if (token == QXmlStreamReader::Characters && m_depth == inside)
            read += m_xml.text();
        if (token == QXmlStreamReader::EndElement && m_depth < inside) {
            *text = read;
            return true;
        }
    }
    return false;
}

bool ConfigReader::atSoundEnd()
{
    while (!m_xml.atEnd())
        next();
    return !m_xml.hasError();
}

namespace {

/// Entries of lists that are written from the memory of the program, so that nothing in them is unknown.
bool isListEntry(const QString& parent, const QString& name)
{
    if (parent == QLatin1String("RecentRecs"))
        return name == QLatin1String("nom");
    return name == QLatin1String("item")
        && (parent == QLatin1String("Formats") || parent == QLatin1String("openedPathS"));
}

QDomElement elementAtHand(const ConfigReader& reader, QDomDocument& document)
{
    QDomElement element = document.createElement(reader.name());
    const QXmlStreamAttributes attributes = reader.xml().attributes();
    for (const QXmlStreamAttribute& attribute : attributes)
        element.setAttribute(attribute.qualifiedName().toString(), attribute.value().toString());
    return element;
}

/// Reads the content of the root element, which the reader has just entered.
void readTree(ConfigReader& reader, QDomDocument& document, QDomElement root)
{
    QDomElement at = root;
    int count = 0;
    while (!at.isNull() && !reader.xml().atEnd()) {
        switch (reader.next()) {
        case QXmlStreamReader::StartElement: {
            if (isListEntry(at.tagName(), reader.name())) {
                reader.skip();
                break;
            }
            if (++count > maxConfigElements) {
                reader.fail(QStringLiteral("too many elements"));
                break;
            }
            QDomElement child = elementAtHand(reader, document);
            at.appendChild(child);
            at = child;
            break;
        }
        case QXmlStreamReader::EndElement:
            at = at.parentNode().toElement();
            break;
        case QXmlStreamReader::Characters:
            at.appendChild(document.createTextNode(reader.xml().text().toString()));
            break;
        case QXmlStreamReader::Comment:
            at.appendChild(document.createComment(reader.xml().text().toString()));
            break;
        default:
            break;
        }
    }
}

bool isXmlCharacter(uint code)
{
    if (code < 0x20)
        return code == '\t' || code == '\n' || code == '\r';
    return code != 0xfffe && code != 0xffff; // half a pair has become the replacement character
}

/// Writes a document in one single-byte encoding.
class Encoder {
public:
    QByteArray out;

    void node(const QDomNode& node, int depth)
    {
        if (node.isElement())
            element(node.toElement(), depth);
        else if (node.isText())
            text(node.nodeValue(), false);
        else if (node.isComment())
            markup("<!--", node.nodeValue(), "-->");
        else if (node.isProcessingInstruction())
            markup("<?", node.nodeName() + QLatin1Char(' ') + node.nodeValue(), "?>");
    }

private:
    bool holds(const QString& text) const { return m_codec->canEncode(text); }

    void markup(const char* open, const QString& text, const char* close)
    {
        if (holds(text)) // a character reference would mean nothing here
            out += open + m_codec->fromUnicode(text) + close;
    }

    void element(const QDomElement& element, int depth)
    {
        const QString name = element.tagName();
        if (!holds(name))
            return;
        const QByteArray tag = m_codec->fromUnicode(name);
        out += '<' + tag;
        attributes(element);
        if (!element.hasChildNodes()) {
            out += "/>";
            return;
        }
        out += '>';
        const bool indented = !hasText(element);
        for (QDomNode child = element.firstChild(); !child.isNull(); child = child.nextSibling()) {
            if (indented)
                newLine(depth + 1);
            node(child, depth + 1);
        }
        if (indented)
            newLine(depth);
        out += "</" + tag + '>';
    }

    void attributes(const QDomElement& element)
    {
        const QDomNamedNodeMap all = element.attributes();
        QMap<QString, QString> sorted; // so that the same settings always give the same file
        for (int i = 0; i < all.count(); ++i)
            sorted.insert(all.item(i).nodeName(), all.item(i).nodeValue());
        for (auto each = sorted.cbegin(); each != sorted.cend(); ++each) {
            if (!holds(each.key()))
                continue;
            out += ' ' + m_codec->fromUnicode(each.key()) + "=\"";
            text(each.value(), true);
            out += '"';
        }
    }

    static bool hasText(const QDomElement& element)
    {
        for (QDomNode child = element.firstChild(); !child.isNull(); child = child.nextSibling()) {
            if (child.isText())
                return true;
        }
        return false;
    }

    void newLine(int depth) { out += '\n' + QByteArray(4 * depth, ' '); }

    void text(const QString& text, bool attribute)
    {
        const QVector<uint> codes = text.toUcs4();
        for (const uint code : codes) {
            if (!isXmlCharacter(code))
                continue;
            const bool lineEnd = code == '\r' || (attribute && (code == '\n' || code == '\t'));
            if (code == '<' || code == '>' || code == '&' || code == '"' || lineEnd)
                reference(code);
            else if (code < 0x80)
                out += char(code);
            else if (code <= 0xffff && m_codec->canEncode(QChar(code)))
                out += m_codec->fromUnicode(QString(QChar(code)));
            else
                reference(code);
        }
    }

    void reference(uint code)
    {
        switch (code) {
        case '<':
            out += "&lt;";
            break;
        case '>':
            out += "&gt;";
            break;
        case '&':
            out += "&amp;";
            break;
        case '"':
            out += "&quot;";
            break;
        default:
            out += "&#" + QByteArray::number(code) + ';';
        }
    }

    const QTextCodec* m_codec = QTextCodec::codecForName("Windows-1251");
};

} // namespace

QDomDocument configTree(const QByteArray& content, bool* damaged)
{
    QDomDocument document;
    ConfigReader reader(content);
    *damaged = true;
    if (!reader.enter() || reader.name() != QLatin1String("xml"))
        return document;
    QDomElement root = elementAtHand(reader, document);
    document.appendChild(root);
    readTree(reader, document, root);
    *damaged = !reader.atSoundEnd();
    return document;
}

QByteArray encodeConfig(const QDomDocument& document)
{
    Encoder encoder;
    for (QDomNode node = document.firstChild(); !node.isNull(); node = node.nextSibling()) {
        encoder.node(node, 0);
        encoder.out += '\n';
    }
    return encoder.out;
}
