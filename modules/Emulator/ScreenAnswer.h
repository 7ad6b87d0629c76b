#pragma once

#include "SScreenExport.h"

class CBackgroundRender;
class CItemModel;

/// The widgets of a screen as they are now, front-most first, for SScreenExport. To be taken when
/// the screen is asked for.
QList<SExportedItem> exportedItems(const CItemModel &screen);

/// What a complete answer brought, its frame taken out of it, and what the chip cannot do.
SScreenExport screenAnswer(CScreenModel &screen, CBackgroundRender &render,
                           const QList<SExportedItem> &items);
