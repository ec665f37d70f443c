#pragma once

#include "load/core/recentrecs.h"

#include <QString>
#include <QXmlDefaultHandler>

// The handlers of the event-driven reader are marked deprecated in favour of the stream reader.
QT_WARNING_PUSH
QT_WARNING_DISABLE_DEPRECATED

/// Fills the ring RecRecs from the element "RecentRecs" of the configuration file. The entries stand newest
/// first in the file; each goes below those before it, so that the ring is in order after every entry, also
/// where damage ends the parse. A document type and deep nesting end the parse, too.
class RecentRecsParser : public QXmlDefaultHandler {
public:
    bool startDocument() override;
    bool startElement(const QString& namespaceUri, const QString& localName, const QString& qName,
        const QXmlAttributes& attributes) override;
    bool endElement(const QString& namespaceUri, const QString& localName, const QString& qName) override;
    bool characters(const QString& text) override;
    bool startDTD(const QString& name, const QString& publicId, const QString& systemId) override;
    bool fatalError(const QXmlParseException& exception) override;
    /// What fatalError() stored, or "Error!!!!".
    QString errorString() const override;

private:
    void take(const QString& name);
    void keepEntry();

    QString m_error;
    QString m_text;
    RecentRecs m_entry;
    int m_depth = 0;
    bool m_inList = false;
    bool m_inEntry = false;
};

QT_WARNING_POP

/// Puts the list of the configuration file in place of the ring. False, with the reason in `error`, when the
/// file cannot be opened, which gives no entries, or is damaged, which gives those before the damage.
bool readRecentRecs(const QString& file, QString* error);
