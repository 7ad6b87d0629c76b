#pragma once

class CItemModel;
class CItemView;
class ICanvas;

/// Decides which view shows a model item.
namespace ItemViewFactory {
CItemView *create(CItemModel *item, const ICanvas &canvas);
}
