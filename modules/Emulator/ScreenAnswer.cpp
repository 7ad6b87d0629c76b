#include "ScreenAnswer.h"

#include "CBackgroundRender.h"
#include "CScreenModel.h"
#include "ChipFindings.h"
#include "ItemOutline.h"
#include "ItemTree.h"

QList<SExportedItem> exportedItems(const CItemModel &screen)
{
    QList<SExportedItem> items;
    forEachItem(screen, [&items](const CItemModel &item) {
        if (item.kind() != CItemModel::Kind::Widget)
            return;
        const CItemModel *parent = item.parentItem();
        const bool isMember = parent && parent->kind() == CItemModel::Kind::Group;
        const SItemOutline outline = itemOutline(item);
        items.append({item.name(), item.itemTypeName(), item.idString(), item.id(),
                      isMember ? parent->name() : QString(), outline.box, outline.turn});
    });
    return items;
}

SScreenExport screenAnswer(CScreenModel &screen, CBackgroundRender &render,
                           const QList<SExportedItem> &items)
{
    const QStringList ofChip = chipFindings(screen);
    return {&screen,
            screen.name(),
            render.text(),
            render.bytes(),
            render.takeFrame(),
            render.ramDl(),
            render.ramG(),
            render.errors() + ofChip,
            ofChip,
            render.memory(),
            items,
            render.cutTexts()};
}
