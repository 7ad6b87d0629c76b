#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

class QDomDocument;
class QDomNode;

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

    /// A whole DOM document. Attributes come sorted by name, so that equal documents give equal
    /// bytes; the declaration always says UTF-8.
    static QByteArray fromDom(const QDomDocument &document);

private:
    void startNode();
    void endNode();
    void closeStartTag();
    void openDomNode(const QDomNode &node);
    void text(const QString &text);
    void comment(QString text);
    void instruction(const QString &target, const QString &data);

    QByteArray m_bytes;
    QVector<QByteArray> m_openTags;
    bool m_inStartTag = false;   ///< the last start tag still lacks its ">"
    bool m_lineBreakDue = false; ///< left to the next node: a text must follow without one
    bool m_afterText = false;
};
