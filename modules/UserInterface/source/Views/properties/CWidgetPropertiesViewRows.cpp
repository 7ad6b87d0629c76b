// Which rows the panel has, how they are laid out, and where each is.
#include "CImageChooser.h"
#include "CItemModel.h"
#include "CPropertyDelegate.h"
#include "CPropertyEditorFactory.h"
#include "CPropertyLayout.h"
#include "CPropertyManager.h"
#include "CPropertyRows.h"
#include "CWidgetLibraryModel.h"
#include "CWidgetPropertiesView.h"
#include "PropertyKey.h"
#include "PropertyWords.h"
#include "ShownProperties.h"

#include <QScopedValueRollback>
#include <QTreeWidget>

#include <algorithm>

void CWidgetPropertiesView::rebuild()
{
    const QScopedValueRollback<bool> updating(m_updating, true);
    setUpdatesEnabled(false);
    const int scroll = scrollPosition();
    clearRows();
    const QVector<CWidgetProperty> properties = ShownProperties::of(*m_item);
    for (const CWidgetProperty &each : properties) {
        addRow(each);
        const QString kind = each.key() == PropertyKey::Name ? kindText() : QString();
        if (!kind.isEmpty())
            addProperty(m_manager->addText(QStringLiteral("type"), kind));
    }
    layOut(properties);
    fitColumns();
    setScrollPosition(scroll);
    const QList<QtBrowserItem *> shown = items(m_rows.value(m_currentKey));
    if (!shown.isEmpty())
        setCurrentItem(shown.first());
    setUpdatesEnabled(true);
}

/// Of what is no widget, which has its kind in the explorer.
QString CWidgetPropertiesView::kindText() const
{
    if (m_item->kind() == CItemModel::Kind::Screen)
        return tr("KIV Screen");
    return m_item->kind() == CItemModel::Kind::Group ? tr("Widget Group") : QString();
}

void CWidgetPropertiesView::addRow(const CWidgetProperty &property)
{
    const QString key = property.key();
    if (key == PropertyKey::PointList) {
        QtProperty *list = m_points.makeRow(key);
        m_points.showText(property.text());
        insertRow(list, key);
        return;
    }
    const CWidgetLibraryModel *library = m_item->library();
    const auto editor =
        library ? library->look(m_item->itemTypeName(), key).editor : SPropertyLook::EEditor::Plain;
    QtVariantProperty *added = m_manager->addRow(property, editor);
    insertRow(added, key);
    if (property.isMultiLine())
        m_factory->setMultiLine(added);
    if (added->propertyType() == QVariant::Color)
        setExpanded(topLevelItem(added), false);
    // A picture is chosen where its file's name stands, or its base name where there is no other.
    const bool isPicture = m_item->hasProperty(PropertyKey::BitmapFolder);
    if (isPicture &&
        (key == PropertyKey::FileName ||
         (key == PropertyKey::BaseName && !m_item->hasProperty(PropertyKey::FileName))))
        m_factory->setFileRow(added);
}

void CWidgetPropertiesView::insertRow(QtProperty *row, const QString &key)
{
    m_rows.insert(key, row);
    addProperty(row);
}

/// As the library says, under its headings; for a kind that it does not know, one below the other.
void CWidgetPropertiesView::layOut(const QVector<CWidgetProperty> &properties)
{
    const CWidgetLibraryModel *library = m_item->library();
    const QString kind = m_item->itemTypeName();
    const bool isWidget = m_item->kind() == CItemModel::Kind::Widget;
    if (isWidget && (!library || !library->contains(kind)))
        return;
    QVector<CPropertyLayout::SRow> rows;
    for (const CWidgetProperty &each : properties) {
        const QString &key = each.key();
        rows.append({key, m_rows.value(key), PropertyWords::caption(*m_item, key),
                     isWidget ? library->look(kind, key).section : QString()});
        if (!isWidget && key == PropertyKey::Name) // what is no property has its row behind it
            rows.append({QStringLiteral("type"), nullptr, tr("Type"), QString()});
    }
    m_layout->arrange(rows);
}

/// The item that shows the row, and which of its values that is; null when none does.
QPair<QTreeWidgetItem *, int> CWidgetPropertiesView::place(const QString &key) const
{
    const auto *tree = findChild<QTreeWidget *>();
    for (int row = 0; row < tree->topLevelItemCount(); ++row) {
        QTreeWidgetItem *item = tree->topLevelItem(row);
        const CPropertyLayout::SPair *pair = m_layout->pair(item);
        if (!m_layout->isHeading(item) && item->text(0) == key)
            return {item, 0};
        if (pair && pair->second->text(0) == key)
            return {item, 1};
    }
    return {nullptr, 0};
}

QRect CWidgetPropertiesView::valueRect(const QString &key) const
{
    const auto [item, part] = place(key);
    return item ? m_delegate->valueRect(item, part) : QRect();
}

bool CWidgetPropertiesView::edit(const QString &key)
{
    const auto [item, part] = place(key);
    return item && m_leading->edit(item, part);
}

QStringList CWidgetPropertiesView::closedSections() const
{
    return m_layout->closedSections();
}

void CWidgetPropertiesView::setClosedSections(const QStringList &names)
{
    m_layout->setClosedSections(names);
}

/// Rows high enough for the frames of their editors; the browser leaves them 2 above and below.
void CWidgetPropertiesView::spaceRows(const QModelIndex &parent, int first, int last)
{
    constexpr int more = 3;
    const auto *tree = findChild<QTreeWidget *>();
    const QSize size(0, tree->fontMetrics().height() + more);
    for (int row = first; row <= last; ++row)
        tree->model()->setData(tree->model()->index(row, 0, parent), size, Qt::SizeHintRole);
}

/// Names as wide as they need, but never more than half of the panel.
void CWidgetPropertiesView::fitColumns()
{
    auto *tree = findChild<QTreeWidget *>();
    int widest = tree->fontMetrics().horizontalAdvance(tree->headerItem()->text(0));
    for (int row = 0; row < tree->topLevelItemCount(); ++row) {
        const QTreeWidgetItem *item = tree->topLevelItem(row);
        if (!item->isHidden() && !m_layout->isHeading(item) && m_item)
            widest =
                std::max(widest, tree->fontMetrics().horizontalAdvance(m_layout->caption(item)));
    }
    constexpr int padding = 16;
    const int wanted = widest + tree->indentation() + padding;
    setSplitterPosition(qBound(width() / 4, wanted, width() / 2));
}
