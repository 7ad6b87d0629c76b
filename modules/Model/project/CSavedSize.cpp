#include "CSavedSize.h"

#include "CScreenModel.h"
#include "CWidgetProperty.h"
#include "CXmlGuard.h"
#include "PropertyKey.h"
#include "XmlText.h"

#include <algorithm>

namespace {
constexpr int MarkupOfAttribute = 4; // bytes: the space, "=" and the quotes
constexpr int MarkupOfElement = 8;   // of both tags together, with their line ends
} // namespace

void CSavedSize::addAttribute(qint64 nameSize, const QByteArray &value)
{
    m_bytes += nameSize + MarkupOfAttribute + XmlText::escapedSize(value);
    m_longestValue = std::max<qint64>(m_longestValue, value.size());
    ++m_attributes;
}

void CSavedSize::add(const ItemAttributes &attributes)
{
    for (const ItemAttribute &each : attributes)
        addAttribute(each.name.toUtf8().size(), each.text.toUtf8());
    m_mostInOneElement = std::max<qint64>(m_mostInOneElement, attributes.size());
    m_bytes += 2 * TypeName::Project.size() + MarkupOfElement;
    ++m_elements;
}

void CSavedSize::add(const CItemModel &item)
{
    add(item, 2); // below the root element
}

void CSavedSize::add(const CItemModel &item, int depth)
{
    ++m_elements;
    m_depth = std::max(m_depth, depth);
    // Of the tag, twice, no character takes more than three bytes; both lines are indented.
    m_bytes += 6 * item.itemTypeName().size() + MarkupOfElement + 2 * depth;
    const CItemModel::PropertySet &properties = item.properties();
    m_mostInOneElement = std::max<qint64>(m_mostInOneElement, properties.size() + 1); // guides
    if (item.kind() == CItemModel::Kind::Screen) {
        const auto &guides = static_cast<const CScreenModel &>(item).guidesAttribute();
        addAttribute(guides.keyUtf8().size(), guides.textUtf8());
    }
    for (const CWidgetProperty &each : properties)
        addAttribute(each.keyUtf8().size(), each.textUtf8());
    for (int row = 0; row < item.rowCount(); ++row) {
        if (const CItemModel *child = item.childItem(row))
            add(*child, depth + 1);
    }
}

bool CSavedSize::isWithinLimits() const
{
    return m_bytes <= CXmlGuard::MaxBytes && m_attributes <= CXmlGuard::MaxAttributes &&
           m_mostInOneElement <= CXmlGuard::MaxAttributesOfElement &&
           m_longestValue <= CXmlGuard::MaxValueLength && m_elements <= CXmlGuard::MaxElements &&
           m_depth <= CXmlGuard::MaxDepth;
}
