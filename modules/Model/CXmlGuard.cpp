#include "CXmlGuard.h"

#include "CXmlTagScan.h"
#include "RegularFile.h"

#include <QFile>
#include <QXmlStreamReader>

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

/// One pass over a document's tokens that keeps what the limits ask for.
class CTokenCheck
{
public:
    /// The reason why the token that the reader stands at is refused, or nothing.
    QString refusal(const QXmlStreamReader &reader)
    {
        switch (reader.tokenType()) {
        case QXmlStreamReader::StartDocument:
            if (!isAllowedEncoding(reader.documentEncoding()))
                return CXmlGuard::tr(
                           "The encoding %1 is not supported; save the document as UTF-8.")
                    .arg(reader.documentEncoding());
            return {};
        case QXmlStreamReader::DTD:
            return CXmlGuard::tr("Document types and entities are not allowed.");
        case QXmlStreamReader::StartElement:
            return elementRefusal(reader.attributes());
        case QXmlStreamReader::EndElement:
            --m_depth;
            m_textLength = 0;
            return {};
        default: // texts, comments and instructions that follow each other count as one
            m_textLength += reader.text().size();
            return valueRefusal(m_textLength);
        }
    }

private:
    QString elementRefusal(const QXmlStreamAttributes &attributes)
    {
        m_textLength = 0;
        if (++m_depth > CXmlGuard::MaxDepth)
            return CXmlGuard::tr("Elements are nested deeper than %1 levels.")
                .arg(CXmlGuard::MaxDepth);
        if (++m_elements > CXmlGuard::MaxElements)
            return CXmlGuard::tr("The document has more than %1 elements.")
                .arg(CXmlGuard::MaxElements);
        for (const QXmlStreamAttribute &attribute : attributes) {
            const QString refusal = valueRefusal(attribute.value().size());
            if (!refusal.isEmpty())
                return refusal;
        }
        return {};
    }

    static QString valueRefusal(qint64 length)
    {
        if (length <= CXmlGuard::MaxValueLength)
            return {};
        return CXmlGuard::tr("A value is longer than %1 MiB.").arg(CXmlGuard::MaxValueLength >> 20);
    }

    int m_depth = 0;
    int m_elements = 0;
    qint64 m_textLength = 0;
};

void setError(QString *error, const QString &text)
{
    if (error)
        *error = text;
}
} // namespace

QString CXmlGuard::check(const QByteArray &xml)
{
    const QString refusal = checkCounts(xml);
    if (!refusal.isEmpty())
        return refusal;

    QXmlStreamReader reader(xml);
    reader.setNamespaceProcessing(false);
    CTokenCheck tokens;
    while (!reader.atEnd()) {
        reader.readNext();
        if (reader.hasError())
            return tr("Line %1: %2").arg(reader.lineNumber()).arg(reader.errorString());
        const QString reason = tokens.refusal(reader);
        if (!reason.isEmpty())
            return tr("Line %1: %2").arg(reader.lineNumber()).arg(reason);
    }
    return {};
}

std::optional<QDomDocument> CXmlGuard::parse(const QByteArray &xml, QString *error)
{
    const QString refusal = check(xml);
    setError(error, refusal);
    if (!refusal.isEmpty())
        return {};

    // The same parser as in the check, so that both agree on every document.
    QXmlStreamReader reader(xml);
    reader.setNamespaceProcessing(false);
    QDomDocument document;
    QString reason;
    if (!document.setContent(&reader, false, &reason)) {
        setError(error, reason);
        return {};
    }
    return document;
}

std::optional<QByteArray> CXmlGuard::readFile(const QString &path, QString *error)
{
    QFile file(path);
    QString reason;
    if (!openRegularFile(file, path, &reason)) {
        setError(error, tr("%1: %2").arg(path, reason));
        return {};
    }
    const QByteArray bytes = file.read(MaxBytes + 1); // the size may change while it is read
    if (bytes.size() > MaxBytes) {
        setError(error, tr("%1 is larger than %2 MiB.").arg(path).arg(MaxBytes >> 20));
        return {};
    }
    if (file.error() != QFileDevice::NoError) {
        setError(error, tr("%1: %2").arg(path, file.errorString()));
        return {};
    }
    return bytes;
}
