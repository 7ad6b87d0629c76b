#include "CTextItemView.h"

#include "CItemModel.h"
#include "PropertyKey.h"
#include "RomFonts.h"

namespace {
const QString TextKey = QStringLiteral("text");
const QString ValueKey = QStringLiteral("value");
} // namespace

CTextItemView::CTextItemView(CItemModel *item, const ICanvas &canvas, Mode mode)
    : CItemView(item, canvas), m_mode(mode)
{
    updateBounds();
}

QString CTextItemView::shownText() const
{
    return item()->propertyText(m_mode == Mode::Text ? TextKey : ValueKey);
}

void CTextItemView::onPropertyChanged(const QString &key)
{
    CItemView::onPropertyChanged(key);
    if (key == TextKey || key == ValueKey)
        updateBounds();
}

QRectF CTextItemView::frameOfItem() const
{
    QRectF frame = CItemView::frameOfItem();
    const int font = item()->fontHandle();
    if (!romfonts::isFont(font))
        return frame;
    const std::string latin1 = romfonts::toLatin1(shownText().toStdString());
    const double width = romfonts::textWidth16(font, latin1) / 16.0;
    if (!item()->hasProperty(PropertyKey::Width) && width > 0)
        frame.setWidth(width);
    if (!item()->hasProperty(PropertyKey::Height))
        frame.setHeight(romfonts::height(font));
    return frame;
}
