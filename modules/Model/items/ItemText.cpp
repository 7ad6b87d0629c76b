#include "ItemText.h"

#include "CItemModel.h"
#include "RomFonts.h"

QString ItemText::keyOf(const CItemModel &item)
{
    if (item.itemTypeName() == QLatin1String("Kiv_Text_T"))
        return QStringLiteral("text");
    return item.itemTypeName() == QLatin1String("Kiv_Number_T") ? QStringLiteral("value")
                                                                : QString();
}

QSizeF ItemText::sizeOf(const CItemModel &item)
{
    const QString key = keyOf(item);
    const int font = item.fontHandle();
    if (key.isEmpty() || !romfonts::isFont(font))
        return {};
    const std::string latin1 = romfonts::toLatin1(item.propertyText(key).toStdString());
    return {romfonts::textWidth16(font, latin1) / 16.0, double(romfonts::height(font))};
}
