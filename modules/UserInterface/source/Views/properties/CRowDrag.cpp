#include "CRowDrag.h"

#include "CItemModel.h"
#include "CLiveEdit.h"
#include "CNumberDrag.h"
#include "CPropertyManager.h"
#include "CWidgetProperty.h"
#include "ItemGeometry.h"

#include <QWidget>

namespace {
bool isWhole(const CItemModel &item, const QString &key)
{
    return item.properties().value(key).propertyType() == PropertyType::Int;
}
} // namespace

CRowDrag::CRowDrag(QWidget *view, QtVariantPropertyManager *manager, const SUse &use)
    : QObject(view),
      m_manager(manager),
      m_use(use),
      m_drag(new CNumberDrag(
          view, {[this](const QPoint &place) { return numberAt(place) != nullptr; },
                 [this](const QPoint &place) { begin(place); }, [this](int steps) { show(steps); },
                 [this](bool isKept) { end(isKept); }}))
{
}

CRowDrag::~CRowDrag() = default;

void CRowDrag::cancel()
{
    m_drag->cancel();
}

/// Whose name is there.
QtProperty *CRowDrag::numberAt(const QPoint &place) const
{
    QtProperty *property = m_use.item() ? m_use.rowAt(place) : nullptr;
    if (!property || !property->isEnabled())
        return nullptr;
    const int type = m_manager->propertyType(property);
    const bool isNumber = type == QVariant::Int || type == QVariant::Double;
    const bool isReadOnly =
        m_manager->attributeValue(property, QStringLiteral("readOnly")).toBool();
    return isNumber && !isReadOnly ? property : nullptr;
}

void CRowDrag::begin(const QPoint &place)
{
    QtProperty *property = numberAt(place);
    if (!property)
        return;
    const QString key = m_use.key(property);
    m_use.begins();
    if (numberAt(place) != property)
        return; // what was finished has changed the rows
    const auto attribute = [this, property](const char *name) {
        return m_manager->attributeValue(property, QLatin1String(name)).toDouble();
    };
    m_step = attribute("singleStep");
    m_least = attribute("minimum");
    m_most = attribute("maximum");
    m_edit = std::make_unique<CLiveEdit>(QVector<CItemModel *>{m_use.item()}, key);
}

void CRowDrag::show(int steps)
{
    if (!m_edit)
        return;
    const CItemModel &item = *m_edit->items().constFirst();
    const double value = qBound(m_least, m_edit->start(0).toDouble() + steps * m_step, m_most);
    if (isWhole(item, m_edit->key()))
        m_edit->show(0, static_cast<int>(roundedToInteger(value)));
    else
        m_edit->show(0, CPropertyManager::rounded(value));
}

void CRowDrag::end(bool isKept)
{
    if (m_edit && isKept)
        m_edit->keep({});
    m_edit.reset();
}
