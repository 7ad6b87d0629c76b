#pragma once

class CItemModel;
class CItemView;

/// Decides which view shows a model item.
namespace ItemViewFactory {
CItemView *create(CItemModel *item);
}
