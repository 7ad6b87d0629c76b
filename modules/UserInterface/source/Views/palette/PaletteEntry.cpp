#include "PaletteEntry.h"

#include <QCoreApplication>

bool PaletteEntry::isHeader(const QListWidgetItem *item)
{
    return item->icon().isNull() && item->data(TypeRole).isNull();
}

bool PaletteEntry::isOnShelf(const QListWidgetItem *item)
{
    return item->data(ShelfRole).isValid();
}

QString PaletteEntry::translated(const QVariant &text)
{
    return QCoreApplication::translate("WidgetLibrary", text.toString().toUtf8().constData());
}
