#include "ProjectColours.h"

#include "CProjectModel.h"
#include "CScreenModel.h"
#include "PropertyKey.h"

#include <algorithm>

namespace {
using Counts = QHash<QRgb, int>;

void countText(const QString &text, Counts *counts)
{
    const QColor colour = QColor::isValidColor(text) ? QColor(text) : QColor();
    if (colour.isValid())
        ++(*counts)[colour.rgba()];
}

void countOf(const CItemModel &item, Counts *counts)
{
    for (const CWidgetProperty &each : item.properties()) {
        const bool isPageColour =
            item.kind() == CItemModel::Kind::Screen && each.key() == PropertyKey::Color;
        if (isPageColour || each.propertyType() == PropertyType::Rgb)
            countText(each.text(), counts);
    }
    for (int row = 0; row < item.rowCount(); ++row) {
        if (const CItemModel *below = item.childItem(row))
            countOf(*below, counts);
    }
}
} // namespace

ProjectColours::Uses ProjectColours::of(const CProjectModel &project)
{
    Counts counts;
    for (int row = 0; row < project.screenCount(); ++row)
        countOf(*project.screen(row), &counts);
    Uses uses;
    for (auto each = counts.constBegin(); each != counts.constEnd(); ++each)
        uses.append({QColor::fromRgba(each.key()), each.value()});
    std::sort(uses.begin(), uses.end(), [](const SUse &a, const SUse &b) {
        return a.count != b.count ? a.count > b.count : a.colour.rgba() < b.colour.rgba();
    });
    return uses;
}
