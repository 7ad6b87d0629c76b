#include "CChangeTexts.h"

#include "CPictureBox.h"
#include "CProjectModel.h"
#include "CWidgetLibraryModel.h"
#include "ItemGeometry.h"
#include "PropertyKey.h"
#include "PropertyWords.h"
#include "ShownText.h"

#include <QCoreApplication>
#include <QLocale>

namespace {

QString ofLibrary(const QString &text)
{
    return QCoreApplication::translate("WidgetLibrary", text.toUtf8().constData());
}

const QString Dash(QChar(0x2013));

} // namespace

CChangeTexts::CChangeTexts(const CProjectModel &before, const CProjectModel &now)
    : m_library(now.library()), m_fontsBefore(fontsOf(before)), m_fonts(fontsOf(now))
{
}

CChangeTexts::Fonts CChangeTexts::fontsOf(const CProjectModel &project)
{
    Fonts fonts;
    for (const FontEntries::SEntry &each : FontEntries::of(project))
        fonts.insert(each.handle, each.text);
    return fonts;
}

QString CChangeTexts::name(const SItemState &item) const
{
    QString kind = item.typeName;
    if (item.kind == CItemModel::Kind::Group)
        kind = tr("Group");
    else if (m_library && m_library->contains(kind))
        kind = PropertyWords::kind(m_library->propertySet(kind).value(PropertyKey::Name).text());
    return ShownText::name(QStringLiteral("%1 \"%2\"").arg(kind, item.name));
}

QString CChangeTexts::caption(const SItemState *item, const QString &key) const
{
    if (!item && key.startsWith(QLatin1String("font "))) // "font <handle> <attribute>"
        return tr("Font %1").arg(ShownText::name(key.section(QLatin1Char(' '), 1)));
    if (key == PropertyKey::Guides)
        return tr("Guides");
    if (key == PropertyKey::Locked)
        return tr("Locked");
    if (key == PropertyKey::Hidden)
        return tr("Hidden");
    if (!m_library)
        return ShownText::name(key);
    return ShownText::name(
        ofLibrary(m_library->look(item ? item->typeName : QString(), key).caption));
}

QString CChangeTexts::value(const SItemState *item, const QString &key, const QString &text,
                            bool isBefore) const
{
    const bool isFlag = item && (key == PropertyKey::Locked || key == PropertyKey::Hidden);
    if (isFlag)
        return PropertyWords::truth(text.toInt() != 0 || text == QLatin1String("true"));
    if (text.isNull())
        return Dash;
    const QString plain =
        ShownText::name(QString(text).replace(QLatin1Char('\n'), QStringLiteral(" \u21b5 ")));
    if (!item || !m_library)
        return plain;
    const auto editor = m_library->look(item->typeName, key).editor;
    if (editor == SPropertyLook::EEditor::Font)
        return (isBefore ? m_fontsBefore : m_fonts).value(text.toInt(), plain);
    if (editor == SPropertyLook::EEditor::Sixteenths)
        return PropertyWords::number(text.toInt() / ItemGeometry::PointSizeOfPixel)
            .replace(QLatin1Char('.'), QLocale().decimalPoint());
    const auto properties = m_library->propertySet(item->typeName);
    const auto property = properties.constFind(key);
    const PropertyType type =
        property == properties.cend() ? PropertyType::Invalid : property->propertyType();
    if (type == PropertyType::Bool)
        return PropertyWords::truth(text.toInt() != 0);
    return type == PropertyType::Enum ? PropertyWords::entry(plain) : plain;
}

QColor CChangeTexts::colour(const SItemState *item, const QString &key, const QString &text) const
{
    if (!item || !m_library || !QColor::isValidColor(text))
        return {};
    const auto properties = m_library->propertySet(item->typeName);
    const auto property = properties.constFind(key);
    const bool isColour =
        property != properties.cend() && property->propertyType() == PropertyType::Rgb;
    const bool isOfPage = item->kind == CItemModel::Kind::Screen && key == PropertyKey::Color;
    return isColour || isOfPage ? QColor(text) : QColor();
}
