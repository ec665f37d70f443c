#pragma once

#include <QByteArray>
#include <QDomDocument>
#include <QString>
#include <QXmlStreamReader>

/// Reads the XML of the configuration file, and holds it to bounds within which no content can do harm: a
/// document type, and with it every entity of its own, and elements nested deeper than maxConfigDepth end the
/// reading as an error of the syntax does.
class ConfigReader {
public:
    /// `content` in the encoding that its XML declaration names.
    explicit ConfigReader(const QByteArray& content);

    /// Goes to the next child of the element at hand. False, past the end of that element, when there is none
    /// left, and at an error.
    bool enter();
    /// Goes past the end of the element at hand.
    void skip();
    /// As skip(), and gives the text of the element without that of its children. False, with `text` as it
    /// was, when the end of the element was not reached.
    bool takeText(QString* text);

    /// Of the element at hand, with its prefix.
    QString name() const { return m_xml.qualifiedName().toString(); }
    QString attribute(const QString& name) const { return m_xml.attributes().value(name).toString(); }
    /// All of the document was read, and it is sound.
    bool atSoundEnd();

    /// The reader behind, at the element or text at hand.
    const QXmlStreamReader& xml() const { return m_xml; }
    /// The next token, within the bounds.
    QXmlStreamReader::TokenType next();
    void fail(const QString& reason) { m_xml.raiseError(reason); }

private:
    QXmlStreamReader m_xml;
    int m_depth = 0;
};

constexpr int maxConfigDepth = 64;
/// Elements that configTree() keeps at most.
constexpr int maxConfigElements = 20000;
/// Bytes that are read of a configuration file at most.
constexpr qint64 maxConfigSize = 8 * 1024 * 1024;

/// The content as a document, without the entries of the lists that are always written anew. `damaged` tells
/// that it is not sound, not of this program, or beyond the bounds; the document then ends there.
QDomDocument configTree(const QByteArray& content, bool* damaged);

/// The document in Windows-1251, indented. Characters which that does not hold become character references;
/// those which XML does not allow are left out.
QByteArray encodeConfig(const QDomDocument& document);
