#include "ItemXml.h"

#include "CGuardedReader.h"
#include "CItemDocument.h"
#include "CItemModel.h"
#include "CWidgetProperty.h"
#include "CXmlWriter.h"
#include "ItemFactory.h"
#include "SItemElement.h"
#include "XmlText.h"

#include <QDomDocument>

#include <array>

namespace {
/// The same few names come again with every item.
QString sharedName(const QStringRef &name)
{
    constexpr size_t places = 512;
    thread_local std::array<QString, places> known; // projects are read by any thread
    uint place = static_cast<uint>(name.size());
    for (const QChar character : name)
        place = place * 31 + character.unicode();
    QString &kept = known[place % places];
    if (name != kept)
        kept = name.toString();
    return kept;
}

CItemModel *makeChild(const CItemModel &parent, const QString &tag)
{
    return ItemFactory::make(tag, parent.library(), parent.observer());
}
} // namespace

ItemAttributes ItemXml::attributesOf(const QDomElement &element)
{
    const QDomNamedNodeMap map = element.attributes();
    ItemAttributes attributes;
    attributes.reserve(map.count());
    for (int i = 0; i < map.count(); ++i) {
        const QDomAttr attribute = map.item(i).toAttr();
        attributes.append({attribute.name(), attribute.value()});
    }
    return attributes;
}

ItemAttributes ItemXml::attributesOf(const CGuardedReader &reader)
{
    const QXmlStreamAttributes source = reader.attributes();
    ItemAttributes attributes;
    attributes.reserve(source.size());
    for (const QXmlStreamAttribute &each : source)
        attributes.append({sharedName(each.qualifiedName()), each.value().toString()});
    return attributes;
}

void ItemXml::read(CItemModel &item, const QDomElement &element)
{
    CItemDocument::of(item).load(item, attributesOf(element));
    if (!CItemDocument::of(item).canHaveChildren())
        return;
    QVector<CItemModel *> children;
    QDomElement child = element.firstChildElement();
    for (; !child.isNull(); child = child.nextSiblingElement()) {
        children.append(makeChild(item, child.tagName()));
        children.last()->loadFromElement(child);
    }
    item.appendChildren(children);
}

void ItemXml::read(CItemModel &item, CGuardedReader &reader)
{
    CItemDocument::of(item).load(item, attributesOf(reader));
    if (!CItemDocument::of(item).canHaveChildren()) {
        reader.skipCurrentElement();
        return;
    }
    QVector<CItemModel *> children;
    while (reader.readNextStartElement()) {
        children.append(makeChild(item, sharedName(reader.tag())));
        read(*children.last(), reader);
    }
    item.appendChildren(children);
}

SItemElement ItemXml::elementOf(CGuardedReader &reader)
{
    SItemElement element{sharedName(reader.tag()), attributesOf(reader), {}};
    while (reader.readNextStartElement())
        element.children.push_back(elementOf(reader));
    return element;
}

void ItemXml::read(CItemModel &item, const SItemElement &element)
{
    CItemDocument::of(item).load(item, element.attributes);
    if (!CItemDocument::of(item).canHaveChildren())
        return;
    QVector<CItemModel *> children;
    children.reserve(int(element.children.size()));
    for (const SItemElement &each : element.children) {
        children.append(makeChild(item, each.tag));
        read(*children.last(), each);
    }
    item.appendChildren(children);
}

void ItemXml::write(const CItemModel &item, QDomElement &element)
{
    const auto properties = CItemDocument::of(item).saved(item);
    for (const CWidgetProperty *each : properties) {
        if (XmlText::isAttributeName(each->keyUtf8()))
            element.setAttribute(each->key(),
                                 CItemDocument::savedText(item, *each, FolderForm::Relative));
    }
    for (int row = 0; row < item.rowCount(); ++row) {
        const CItemModel *child = item.childItem(row);
        if (!child)
            continue;
        QDomElement childElement = element.ownerDocument().createElement(child->itemTypeName());
        child->saveToElement(childElement);
        element.appendChild(childElement);
    }
}

void ItemXml::write(const CItemModel &item, const QString &tag, FolderForm folders,
                    CXmlWriter &writer)
{
    writer.startElement(tag);
    const auto properties = CItemDocument::of(item).saved(item);
    for (const CWidgetProperty *each : properties)
        writer.attribute(each->keyUtf8(), CItemDocument::savedTextUtf8(item, *each, folders));
    for (int row = 0; row < item.rowCount(); ++row) {
        if (const CItemModel *child = item.childItem(row))
            write(*child, child->itemTypeName(), folders, writer);
    }
    writer.endElement();
}
