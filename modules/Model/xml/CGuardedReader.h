#pragma once

#include <QByteArray>
#include <QXmlStreamReader>

/// Reads a document and checks what CXmlGuard asks for at each token, so that a document is let
/// through and taken in one pass. What was read of a document that is refused later must be thrown
/// away; refusal() is final once atEnd().
class CGuardedReader
{
public:
    explicit CGuardedReader(const QByteArray &xml);

    /// The start tag of the next child; false at the end of the element, or of what may be read.
    bool readNextStartElement();
    /// Goes on behind the end tag of the element that the reader stands at.
    void skipCurrentElement();
    void skipRest(); ///< to the end of the document

    bool atEnd() const { return !m_refusal.isEmpty() || m_reader.atEnd(); }
    /// Why the document may not be read, with the line where there is one; empty if it may.
    const QString &refusal() const { return m_refusal; }

    QStringRef tag() const { return m_reader.qualifiedName(); }
    QXmlStreamAttributes attributes() const { return m_reader.attributes(); }

private:
    bool next();
    QString tokenRefusal();
    QString elementRefusal();
    static QString valueRefusal(qint64 length);

    QXmlStreamReader m_reader;
    QString m_refusal;
    int m_depth = 0;
    int m_elements = 0;
    qint64 m_textLength = 0;
};
