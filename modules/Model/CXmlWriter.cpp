#include "CXmlWriter.h"

#include "XmlText.h"

#include <QDomDocument>

#include <algorithm>

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
    startNode();
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
    XmlText::appendEscaped(m_bytes, value, XmlText::Place::Attribute);
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
        m_inStartTag = false;
    } else {
        if (m_lineBreakDue)
            m_bytes.append('\n');
        if (!m_afterText)
            m_bytes.append(m_openTags.size(), ' ');
        m_bytes.append("</").append(tag).append('>');
    }
    endNode();
}

void CXmlWriter::closeStartTag()
{
    if (m_inStartTag)
        m_bytes.append('>');
    m_inStartTag = false;
}

/// Line break and indentation before a node that is not text.
void CXmlWriter::startNode()
{
    if (m_inStartTag)
        m_lineBreakDue = true;
    closeStartTag();
    if (m_lineBreakDue)
        m_bytes.append('\n');
    if (!m_afterText)
        m_bytes.append(m_openTags.size(), ' ');
    m_afterText = false;
    m_lineBreakDue = false;
}

void CXmlWriter::endNode()
{
    m_afterText = false;
    m_lineBreakDue = !m_openTags.isEmpty();
    if (m_openTags.isEmpty())
        m_bytes.append('\n');
}

void CXmlWriter::text(const QString &text)
{
    closeStartTag();
    m_lineBreakDue = false;
    XmlText::appendEscaped(m_bytes, text.toUtf8(), XmlText::Place::Content);
    m_afterText = true;
}

void CXmlWriter::comment(QString text)
{
    while (text.contains(QLatin1String("--")))
        text.replace(QLatin1String("--"), QLatin1String("- -"));
    if (text.endsWith(QLatin1Char('-')))
        text.append(QLatin1Char(' '));
    startNode();
    m_bytes.append("<!--");
    XmlText::appendCleaned(m_bytes, text.toUtf8());
    m_bytes.append("-->");
    endNode();
}

void CXmlWriter::instruction(const QString &target, const QString &data)
{
    if (target.compare(QLatin1String("xml"), Qt::CaseInsensitive) == 0) {
        if (m_bytes.isEmpty()) // a declaration elsewhere is an error
            m_bytes.append("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n");
        return;
    }
    if (!XmlText::isElementName(target) || data.contains(QLatin1String("?>")))
        return;
    startNode();
    m_bytes.append("<?").append(target.toUtf8()).append(' ');
    XmlText::appendCleaned(m_bytes, data.toUtf8());
    m_bytes.append("?>");
    endNode();
}

void CXmlWriter::openDomNode(const QDomNode &node)
{
    if (node.isText() || node.isCDATASection()) { // a CDATA section reads back as the same text
        text(node.nodeValue());
    } else if (node.isComment()) {
        comment(node.nodeValue());
    } else if (node.isProcessingInstruction()) {
        instruction(node.nodeName(), node.nodeValue());
    } else if (node.isElement()) {
        startElement(node.nodeName());
        const QDomNamedNodeMap attributes = node.attributes();
        QVector<QDomAttr> sorted;
        sorted.reserve(attributes.count());
        for (int i = 0; i < attributes.count(); ++i)
            sorted.append(attributes.item(i).toAttr());
        std::sort(sorted.begin(), sorted.end(),
                  [](const QDomAttr &a, const QDomAttr &b) { return a.name() < b.name(); });
        for (const QDomAttr &each : qAsConst(sorted))
            attribute(each.name(), each.value());
    }
}

QByteArray CXmlWriter::fromDom(const QDomDocument &document)
{
    CXmlWriter writer;
    // Not recursive: a document built in memory can be deeper than the stack.
    QDomNode node = document.firstChild();
    while (!node.isNull()) {
        writer.openDomNode(node);
        if (node.isElement() && node.hasChildNodes()) {
            node = node.firstChild();
            continue;
        }
        if (node.isElement())
            writer.endElement();
        while (!node.isNull() && node.nextSibling().isNull()) {
            node = node.parentNode();
            if (node.isElement())
                writer.endElement();
        }
        node = node.nextSibling();
    }
    return writer.m_bytes;
}
