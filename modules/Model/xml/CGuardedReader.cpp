#include "CGuardedReader.h"

#include "CXmlGuard.h"
#include "CXmlTagScan.h"

namespace {
/// Encodings whose markup is made of plain ASCII bytes, so that the tag scan sees all of it.
bool isAllowedEncoding(const QStringRef &name)
{
    for (const char *allowed : {"UTF-8", "US-ASCII", "ISO-8859-1", "windows-1252"}) {
        if (name.compare(QLatin1String(allowed), Qt::CaseInsensitive) == 0)
            return true;
    }
    return name.isEmpty();
}

QString checkCounts(const QByteArray &xml)
{
    if (xml.size() > CXmlGuard::MaxBytes)
        return CXmlGuard::tr("The document is larger than %1 MiB.").arg(CXmlGuard::MaxBytes >> 20);
    if (xml.contains('\0'))
        return CXmlGuard::tr("The document contains zero bytes; it must be UTF-8 text.");
    const CXmlTagScan tags(xml);
    if (tags.mostInOneElement() > CXmlGuard::MaxAttributesOfElement)
        return CXmlGuard::tr("An element has more than %1 attributes.")
            .arg(CXmlGuard::MaxAttributesOfElement);
    if (tags.attributes() > CXmlGuard::MaxAttributes)
        return CXmlGuard::tr("The document has more than %1 attributes.")
            .arg(CXmlGuard::MaxAttributes);
    return {};
}
} // namespace

CGuardedReader::CGuardedReader(const QByteArray &xml) : m_refusal(checkCounts(xml))
{
    if (!m_refusal.isEmpty())
        return;
    m_reader.addData(xml);
    m_reader.setNamespaceProcessing(false);
}

bool CGuardedReader::readNextStartElement()
{
    while (next()) {
        if (m_reader.isStartElement())
            return true;
        if (m_reader.isEndElement() || m_reader.isEndDocument())
            return false;
    }
    return false;
}

void CGuardedReader::skipCurrentElement()
{
    const int above = m_depth - 1;
    while (m_depth > above && next())
        ;
}

void CGuardedReader::skipRest()
{
    while (next())
        ;
}

bool CGuardedReader::next()
{
    if (atEnd())
        return false;
    m_reader.readNext();
    const QString reason = m_reader.hasError() ? m_reader.errorString() : tokenRefusal();
    if (!reason.isEmpty())
        m_refusal = CXmlGuard::tr("Line %1: %2").arg(m_reader.lineNumber()).arg(reason);
    return reason.isEmpty();
}

/// The reason why the token that the reader stands at is refused, or nothing.
QString CGuardedReader::tokenRefusal()
{
    switch (m_reader.tokenType()) {
    case QXmlStreamReader::StartDocument:
        if (!isAllowedEncoding(m_reader.documentEncoding()))
            return CXmlGuard::tr("The encoding %1 is not supported; save the document as UTF-8.")
                .arg(m_reader.documentEncoding());
        return {};
    case QXmlStreamReader::DTD:
        return CXmlGuard::tr("Document types and entities are not allowed.");
    case QXmlStreamReader::StartElement:
        return elementRefusal();
    case QXmlStreamReader::EndElement:
        --m_depth;
        m_textLength = 0;
        return {};
    default: // texts, comments and instructions that follow each other count as one
        m_textLength += m_reader.text().size();
        return valueRefusal(m_textLength);
    }
}

QString CGuardedReader::elementRefusal()
{
    m_textLength = 0;
    if (++m_depth > CXmlGuard::MaxDepth)
        return CXmlGuard::tr("Elements are nested deeper than %1 levels.").arg(CXmlGuard::MaxDepth);
    if (++m_elements > CXmlGuard::MaxElements)
        return CXmlGuard::tr("The document has more than %1 elements.").arg(CXmlGuard::MaxElements);
    const QXmlStreamAttributes attributes = m_reader.attributes();
    for (const QXmlStreamAttribute &attribute : attributes) {
        const QString refusal = valueRefusal(attribute.value().size());
        if (!refusal.isEmpty())
            return refusal;
    }
    return {};
}

QString CGuardedReader::valueRefusal(qint64 length)
{
    if (length <= CXmlGuard::MaxValueLength)
        return {};
    return CXmlGuard::tr("A value is longer than %1 MiB.").arg(CXmlGuard::MaxValueLength >> 20);
}
