#include "CXmlWriter.h"

#include "XmlText.h"

namespace {
/// The name as it can be written: itself, or with "_" for what cannot stand there.
QString writableTag(const QString &tag)
{
    if (XmlText::isElementName(tag))
        return tag;
    QString cleaned = QStringLiteral("_");
    for (const QChar character : tag) {
        const QString longer = cleaned + character;
        cleaned = XmlText::isElementName(longer) ? longer : cleaned + QLatin1Char('_');
    }
    return cleaned;
}
} // namespace

void CXmlWriter::startElement(const QString &tag)
{
    if (m_inStartTag)
        m_bytes.append('>');
    if (!m_openTags.isEmpty())
        startLine();
    const QByteArray name = writableTag(tag).toUtf8();
    m_bytes.append('<').append(name);
    m_openTags.append(name);
    m_inStartTag = true;
}

void CXmlWriter::attribute(const QByteArray &name, const QByteArray &value)
{
    Q_ASSERT(m_inStartTag);
    if (!XmlText::isAttributeName(name))
        return;
    m_bytes.append(' ').append(name).append("=\"");
    XmlText::appendEscaped(m_bytes, value);
    m_bytes.append('"');
}

void CXmlWriter::attribute(const QString &name, const QString &value)
{
    attribute(name.toUtf8(), value.toUtf8());
}

void CXmlWriter::endElement()
{
    const QByteArray tag = m_openTags.takeLast();
    if (m_inStartTag) {
        m_bytes.append("/>");
    } else {
        startLine();
        m_bytes.append("</").append(tag).append('>');
    }
    m_inStartTag = false;
    if (m_openTags.isEmpty())
        m_bytes.append('\n');
}

void CXmlWriter::startLine()
{
    m_bytes.append('\n').append(m_openTags.size(), ' ');
}
