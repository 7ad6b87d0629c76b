#include "CItemReplacement.h"

#include "CItemModel.h"
#include "CProjectModel.h"
#include "CScreenModel.h"
#include "PropertyKey.h"
#include "PropertyWords.h"
#include "SearchChoices.h"
#include "ValueText.h"

namespace {
using ESort = SFacet::ESort;

/// What an image is, beside how large its widget is and what it is tinted with.
const QStringList &imageKeys()
{
    static const QStringList keys = {PropertyKey::FileName,     PropertyKey::BaseName,
                                     PropertyKey::Suffix,       PropertyKey::BitmapFolder,
                                     PropertyKey::Format,       PropertyKey::BitmapWidth,
                                     PropertyKey::BitmapHeight, PropertyKey::Video};
    return keys;
}

/// The property as its values are read; a page's colour is a text where a document has it.
CWidgetProperty definitionOf(const CItemModel &item, const QString &key)
{
    if (item.kind() == CItemModel::Kind::Screen && key == PropertyKey::Color)
        return {key, PropertyType::Rgb};
    return item.properties().value(key);
}
} // namespace

CItemReplacement::CItemReplacement(const CProjectModel &project, const SSearchQuery &query,
                                   const QString &by)
    : m_project(project),
      m_query(query),
      m_by(by),
      m_matcher(query.text,
                query.isPattern ? CTextMatcher::EMode::Pattern : CTextMatcher::EMode::Plain,
                query.isCaseSensitive ? Qt::CaseSensitive : Qt::CaseInsensitive),
      m_problem(query.field == ESearchField::Property ? QString() : m_matcher.lackFor(by))
{
    for (int row = 0; row < project.screenCount(); ++row)
        m_pageNames.insert(project.screen(row)->name());
    for (const int handle : SearchChoices::fonts(project))
        m_fonts.insert(handle);
}

QString CItemReplacement::lockRefusal(const CItemModel &item, const SFacet &facet)
{
    if (item.isUnderLock())
        return tr("Locked");
    if (facet.sort == ESort::Kind)
        return tr("A kind cannot be replaced");
    if (facet.key == PropertyKey::Id)
        return tr("Each item has a number of its own");
    if (facet.key == PropertyKey::Format)
        return tr("Needs the image converted: change it in the property panel");
    if (facet.key == PropertyKey::PointList)
        return tr("Points are moved on the canvas");
    if (facet.sort != ESort::Image && definitionOf(item, facet.key).isReadOnly())
        return tr("Cannot be edited");
    return {};
}

QString CItemReplacement::nameRefusal(const CItemModel &item, const QString &name)
{
    if (name.trimmed().isEmpty())
        return tr("A name is missing");
    if (item.kind() != CItemModel::Kind::Screen)
        return {};
    if (m_pageNames.contains(name) && name != item.name())
        return tr("Another page is called so");
    m_pageNames.remove(item.name());
    m_pageNames.insert(name);
    return {};
}

SReplacement CItemReplacement::of(const SSearchHit &hit)
{
    SReplacement result;
    result.item = hit.item;
    result.refusal = lockRefusal(*hit.item, hit.facet);
    if (result.refusal.isEmpty() && hit.facet.sort == ESort::Image)
        changeImage(hit, result);
    else if (result.refusal.isEmpty())
        change(hit, result);
    if (!result.refusal.isEmpty())
        result.values.clear();
    return result;
}

/// The text of the facet afterwards.
QString CItemReplacement::replaced(const SSearchHit &hit, QString *refusal)
{
    const bool isInText =
        hit.found.isFound() && m_query.field != ESearchField::Property &&
        (hit.facet.sort == ESort::Name || hit.facet.sort == ESort::Text ||
         hit.facet.sort == ESort::Time || hit.facet.sort == ESort::Choice || m_query.isPattern);
    if (!isInText)
        return m_by;
    *refusal = m_problem;
    if (!refusal->isEmpty())
        return {};
    const std::optional<QString> text = m_matcher.replaced(hit.text, m_by);
    if (!text)
        *refusal = m_matcher.problem().isEmpty() ? tr("The text is too long") : m_matcher.problem();
    return text.value_or(QString());
}

void CItemReplacement::change(const SSearchHit &hit, SReplacement &result)
{
    result.text = replaced(hit, &result.refusal);
    if (!result.refusal.isEmpty())
        return;
    const CWidgetProperty definition = definitionOf(*hit.item, hit.facet.key);
    const QString bare =
        hit.facet.sort == ESort::Font ? result.text.section(QLatin1Char(' '), 0, 0) : result.text;
    const ValueText::SValue read = ValueText::read(definition, bare, hit.facet.unit);
    result.refusal = read.refusal;
    if (result.refusal.isEmpty() && hit.facet.sort == ESort::Font &&
        !m_fonts.contains(read.value.toInt()))
        result.refusal = tr("No font has this number");
    if (result.refusal.isEmpty() && hit.facet.key == PropertyKey::Name)
        result.refusal = nameRefusal(*hit.item, result.text);
    if (!result.refusal.isEmpty())
        return;
    if (hit.facet.sort == ESort::Choice)
        result.text = PropertyWords::entry(read.value.toString());
    CWidgetProperty after = definition;
    after.setValue(read.value);
    CWidgetProperty before = definition;
    before.setValueFromText(hit.item->propertyText(hit.facet.key));
    if (after.textUtf8() == before.textUtf8())
        result.refusal = tr("Is so already");
    result.values = {{hit.facet.key, hit.item->propertyValue(hit.facet.key), read.value}};
}

/// By one that another widget of the kind shows, which lies ready in the project.
void CItemReplacement::changeImage(const SSearchHit &hit, SReplacement &result)
{
    result.text = m_by;
    const QString type = hit.item->itemTypeName();
    if (!m_images.contains(type))
        m_images.insert(type, SearchChoices::itemWithImage(m_project, type, m_by));
    const CItemModel *model = m_images.value(type);
    if (!model) {
        result.refusal =
            tr("No %1 shows an image of this name").arg(CItemFacets::kindName(*hit.item));
        return;
    }
    for (const QString &key : imageKeys()) {
        if (hit.item->hasProperty(key) && model->hasProperty(key) &&
            hit.item->propertyText(key) != model->propertyText(key))
            result.values.append({key, hit.item->propertyValue(key), model->propertyValue(key)});
    }
    if (result.values.isEmpty())
        result.refusal = tr("Is so already");
}
