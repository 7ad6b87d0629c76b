#pragma once

#include "ItemAttributes.h"

class CGuardedReader;
class CItemModel;
class CXmlWriter;
class QDomElement;

/// Items as XML elements: an element stands for an item, an attribute for a property. Whole
/// projects go through the streams, pieces of documents through DOM elements; both mean the same.
/// Elements must have passed CXmlGuard.
namespace ItemXml {
void read(CItemModel &item, const QDomElement &element);
/// From the start tag that the reader stands at to its end tag, or to where it is refused.
void read(CItemModel &item, CGuardedReader &reader);

/// Folders are written as for the project's own document.
void write(const CItemModel &item, QDomElement &element);
void write(const CItemModel &item, const QString &tag, FolderForm folders, CXmlWriter &writer);
} // namespace ItemXml
