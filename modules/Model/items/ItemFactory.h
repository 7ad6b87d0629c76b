#pragma once

#include <QString>

class CItemModel;
class CWidgetLibraryModel;
class IPropertyChangeObserver;

/// Makes the items that documents name.
namespace ItemFactory {
/// What a child element of this tag stands for, new and in no tree.
CItemModel *make(const QString &tag, const CWidgetLibraryModel *library,
                 IPropertyChangeObserver *observer);
} // namespace ItemFactory
