#pragma once

#include "ItemAttributes.h"

class CGuardedReader;
class CItemModel;
class CXmlWriter;
class QDomElement;
struct SItemElement;

/// Items as XML elements: an element stands for an item, an attribute for a property. Documents go
/// through the streams; DOM elements mean the same.
/// Elements must have passed CXmlGuard.
namespace ItemXml {
void read(CItemModel &item, const QDomElement &element);
/// From the start tag that the reader stands at to its end tag, or to where it is refused.
void read(CItemModel &item, CGuardedReader &reader);
SItemElement elementOf(CGuardedReader &reader);
void read(CItemModel &item, const SItemElement &element);

/// Of the element that the reader stands at; likewise of a DOM element.
ItemAttributes attributesOf(const CGuardedReader &reader);
ItemAttributes attributesOf(const QDomElement &element);

/// Folders are written as for the project's own document.
void write(const CItemModel &item, QDomElement &element);
void write(const CItemModel &item, const QString &tag, FolderForm folders, CXmlWriter &writer);
} // namespace ItemXml
