#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

/// Writes an XML document as UTF-8 bytes: one element a line, indented by one space a level, in
/// the form of QDomDocument::toByteArray(1). The only writer of XML in the program.
/// What it writes can be read back: characters that XML cannot hold are left out (a lone surrogate
/// becomes "?"), an attribute whose name cannot be written is left out, and in the name of an
/// element each character that cannot stand there becomes "_".
/// Time:    in proportion to the text.
class CXmlWriter
{
public:
    void startElement(const QString &tag);
    /// Directly behind startElement() or another attribute only. Name and value are UTF-8.
    void attribute(const QByteArray &name, const QByteArray &value);
    void attribute(const QString &name, const QString &value);
    void endElement();

    /// The document so far; whole once every element has been ended.
    const QByteArray &bytes() const { return m_bytes; }

private:
    void startLine();

    QByteArray m_bytes;
    QVector<QByteArray> m_openTags;
    bool m_inStartTag = false; ///< the last start tag still lacks its ">"
};
