#include "CWidgetPropertiesView.h"

#include "CColourChooser.h"
#include "CCommandChangeItemProperty.h"
#include "CImageChooser.h"
#include "CItemModel.h"
#include "CPictureBox.h"
#include "CProjectModel.h"
#include "CPropertyDelegate.h"
#include "CPropertyEditorFactory.h"
#include "CPropertyLayout.h"
#include "CPropertyManager.h"
#include "CPropertyRows.h"
#include "CRowDrag.h"
#include "ItemGeometry.h"
#include "ItemNames.h"
#include "ItemNumbers.h"
#include "PropertyKey.h"
#include "PropertyStep.h"

#include <QCoreApplication>
#include <QEvent>
#include <QHeaderView>
#include <QScopedValueRollback>
#include <QTreeWidget>
#include <QUndoStack>

CWidgetPropertiesView::CWidgetPropertiesView(QWidget *parent)
    : QtTreePropertyBrowser(parent),
      m_manager(new CPropertyManager(this)),
      m_factory(new CPropertyEditorFactory(this)),
      m_images(new CImageChooser(this)),
      m_colours(new CColourChooser(this)),
      m_layout(new CPropertyLayout(findChild<QTreeWidget *>())),
      m_delegate(new CPropertyDelegate(
          this, m_layout,
          [this](QtProperty *property, QWidget *cell) { return createEditor(property, cell); })),
      m_leading(new CPropertyRows(this, m_factory, m_delegate, m_layout)),
      m_points(m_manager)
{
    // Editors with labels and check boxes have a light ground in every theme.
    setStyleSheet(QStringLiteral("QCheckBox{color:black;} QLabel{color:black}"));
    setFactoryForManager(static_cast<QtVariantPropertyManager *>(m_manager),
                         static_cast<QtVariantEditorFactory *>(m_factory));
    setResizeMode(Interactive);
    auto *header = findChild<QTreeWidget *>()->header();
    header->setStretchLastSection(false); // which takes no less than the width it had first
    header->setSectionResizeMode(1, QHeaderView::Stretch);
    setPropertiesWithoutValueMarked(false);
    connect(this, SIGNAL(currentItemChanged(QtBrowserItem *)), this,
            SLOT(onCurrentItemChanged(QtBrowserItem *)));
    connect(m_factory, &CPropertyEditorFactory::fileWanted, this,
            &CWidgetPropertiesView::chooseFile);
    m_manager->setFontText([this](int font) {
        return m_project ? FontEntries::textOf(FontEntries::of(*m_project), font)
                         : QString::number(font);
    });
    connect(m_factory, &CPropertyEditorFactory::colourWanted, this,
            &CWidgetPropertiesView::chooseColour);
    connect(m_factory, &CPropertyEditorFactory::stepping, this,
            [this](bool isFirst, bool goesOn) { m_steps.begin(isFirst, goesOn); });
    connect(m_factory, &CPropertyEditorFactory::stepped, this, [this] { m_steps.end(); });
    connect(m_factory, &CPropertyEditorFactory::stepsTakenBack, this, [this] {
        if (m_project)
            m_steps.takeBack(m_project->undoStack());
    });
    makeDrag();
    connect(m_images, &CImageChooser::message, this, &CWidgetPropertiesView::message);
    const QAbstractItemModel *rows = findChild<QTreeWidget *>()->model();
    connect(rows, &QAbstractItemModel::rowsInserted, this, &CWidgetPropertiesView::spaceRows);
    showHeader();
    showItems({});
}

CWidgetPropertiesView::~CWidgetPropertiesView()
{
    cancelDrag();
    m_factory->discardPending();
    m_item = nullptr;
    m_layout->clear();
    clear();
    // Else the browser's tables keep the pointers, and a later view at the same address stumbles.
    unsetFactoryForManager(m_manager);
    delete m_factory;
    delete m_manager;
}

/// Expressions and drags: what a number is changed by beside digits.
void CWidgetPropertiesView::makeDrag()
{
    m_factory->setNames([this](const QString &name) {
        return m_item ? ItemNumbers::find(*m_item, name) : std::nullopt;
    });
    m_drag = new CRowDrag(findChild<QTreeWidget *>()->viewport(), m_manager,
                          {[this](const QPoint &place) { return rowNamedAt(place); },
                           [this](QtProperty *row) { return m_rows.key(row); },
                           [this] { return isEnabled() ? m_item : nullptr; },
                           [this] { m_factory->commitPending(); }});
}

/// Null beside the names and for rows within others. In a row of two values the letters are the
/// names.
QtProperty *CWidgetPropertiesView::rowNamedAt(const QPoint &place) const
{
    const auto *tree = findChild<QTreeWidget *>();
    const QTreeWidgetItem *item = tree->itemAt(place);
    if (!item || item->parent())
        return nullptr;
    const CPropertyLayout::SPair *pair = m_layout->pair(item);
    if (pair && m_delegate->letterAt(place) == 1)
        return pair->property;
    const bool isName = pair ? m_delegate->letterAt(place) == 0 : tree->columnAt(place.x()) == 0;
    return isName ? m_rows.value(item->text(0)) : nullptr;
}

void CWidgetPropertiesView::cancelDrag()
{
    m_drag->cancel();
    m_colours->cancel();
}

void CWidgetPropertiesView::setProject(CProjectModel *project)
{
    cancelDrag();
    m_factory->discardPending();
    if (m_project)
        disconnect(m_project, nullptr, this, nullptr);
    m_project = project;
    m_factory->setProject(project);
    if (project) {
        connect(project, &CProjectModel::fontsChanged, this, &CWidgetPropertiesView::refresh);
        connect(project, &CProjectModel::propertyChanged, this,
                &CWidgetPropertiesView::propertyChanged);
        connect(project, &CProjectModel::geometryChanged, this,
                &CWidgetPropertiesView::geometryChanged);
        connect(project, &QAbstractItemModel::dataChanged, this, &CWidgetPropertiesView::showLock);
        connect(project, &QAbstractItemModel::rowsAboutToBeRemoved, this,
                &CWidgetPropertiesView::forgetRemoved);
    }
    showItems({});
}

void CWidgetPropertiesView::showIndexes(const QModelIndexList &indexes)
{
    QList<CItemModel *> items;
    for (const QModelIndex &index : indexes) {
        if (m_project && index.model() == m_project)
            items.append(CItemModel::fromItem(m_project->itemFromIndex(index)));
    }
    items.removeAll(nullptr);
    showItems(items);
}

void CWidgetPropertiesView::showItems(const QList<CItemModel *> &items)
{
    CItemModel *item = items.size() == 1 ? items.first() : nullptr;
    if (item != m_item || !item) {
        cancelDrag();
        m_factory->commitPending();
        m_item = item;
        m_areSeveral = items.size() > 1;
        showState();
    }
    showLock();
}

void CWidgetPropertiesView::showState()
{
    if (m_item)
        rebuild();
    else
        showText(m_areSeveral ? tr("Multiple Items Selected") : tr("No Item Selected"));
}

void CWidgetPropertiesView::showLock()
{
    setEnabled(!m_item || !m_item->isUnderLock());
}

void CWidgetPropertiesView::showText(const QString &text)
{
    clearRows();
    addProperty(m_manager->addProperty(QtVariantPropertyManager::groupTypeId(), text));
}

void CWidgetPropertiesView::clearRows()
{
    const QString key = m_currentKey;
    m_rows.clear();
    m_points.forget();
    m_layout->clear();
    m_delegate->setPart(0);
    clear();
    m_manager->clear();
    findChild<QTreeWidget *>()->reset(); // it would remember rows that were expanded for ever
    m_currentKey = key;                  // clearing has made no row current
}

void CWidgetPropertiesView::itemChanged(QtBrowserItem *changed)
{
    QtTreePropertyBrowser::itemChanged(changed);
    if (!m_item || m_updating)
        return;
    const QtBrowserItem *parent = changed->parent();
    if (!parent) {
        const QString key = changed->property()->propertyName();
        if (m_rows.value(key) == changed->property())
            commit(key, m_manager->modelValue(changed->property()));
    } else if (parent->parent() && m_points.isList(parent->parent()->property())) {
        commit(PropertyKey::PointList, m_points.text());
    } // else a channel of a colour, whose own row reports the change
}

void CWidgetPropertiesView::commit(const QString &key, const QVariant &value)
{
    if (!m_project || !m_item->hasProperty(key) || !PropertyStep::isChange(*m_item, key, value))
        return;
    if (key == PropertyKey::Name && value.toString().trimmed().isEmpty()) {
        propertyChanged(m_item, key, m_item->name()); // everything has a name
        return;
    }
    const bool isConverted =
        key == PropertyKey::Format &&
        CImageChooser::changeOf(*m_item, value.toString()) != CImageChooser::EFormat::Value;
    if (!isConverted)
        takeUp(key);
    const int before = m_project->undoStack()->index();
    if (isConverted)
        changeFormat(value.toString());
    else
        change(key, value);
    if (m_project) // a conversion runs the event loop
        m_steps.pushed(before, m_project->undoStack()->index());
}

void CWidgetPropertiesView::change(const QString &key, const QVariant &value)
{
    const QVariant old = m_item->propertyValue(key);
    const QVariant kept =
        key == PropertyKey::Name ? ItemNames::wanted(*m_item, value.toString()) : value;
    if (kept != old)
        m_project->undoStack()->push(new CCommandChangeItemProperty(m_item, key, kept, old));
    else
        propertyChanged(m_item, key, old);
}

/// A step that goes on with the one before takes its place.
void CWidgetPropertiesView::takeUp(const QString &key)
{
    QUndoStack *stack = m_project->undoStack();
    if (!m_steps.goesOn(*stack))
        return;
    const auto *last =
        dynamic_cast<const CCommandChangeItemProperty *>(stack->command(stack->index() - 1));
    if (!last || last->item() != m_item || last->key() != key)
        return;
    const QScopedValueRollback<bool> updating(m_updating, true); // the row keeps the new value
    m_steps.undoLast(stack);
}

/// Another format needs the image converted into it; when that fails, the format stays.
void CWidgetPropertiesView::changeFormat(const QString &format)
{
    CItemModel *const item = m_item;
    const QString before = item->propertyText(PropertyKey::Format);
    if (!m_images->changeFormat(item, format))
        propertyChanged(item, PropertyKey::Format, before);
    takeFocusBack();
}

void CWidgetPropertiesView::chooseFile()
{
    if (m_item && m_project)
        m_images->choose(m_item);
    takeFocusBack();
}

/// The dialog stands beside the panel, so that both its row and the canvas are seen.
void CWidgetPropertiesView::chooseColour(QtProperty *row, QWidget *editor)
{
    const QString key = m_rows.key(row);
    if (!m_item || !m_project || key.isEmpty())
        return;
    m_factory->commitPending();
    m_colours->choose({m_item}, key, editor);
}

/// The box of a conversion may have closed the editor that had the focus; without any, the window's
/// shortcuts would be dead.
void CWidgetPropertiesView::takeFocusBack()
{
    const QWidget *focused = window()->focusWidget();
    if (!focused || !focused->isVisible())
        findChild<QTreeWidget *>()->setFocus();
}

void CWidgetPropertiesView::propertyChanged(CItemModel *item, const QString &key,
                                            const QVariant &value)
{
    if (!item || item != m_item)
        return;
    QtProperty *shown = m_rows.value(key);
    if (!shown || m_updating)
        return;
    const QScopedValueRollback<bool> updating(m_updating, true);
    if (m_points.isList(shown)) {
        if (m_points.text() != value.toString())
            m_points.showText(value.toString());
    } else if (m_manager->modelValue(shown) != value) {
        m_manager->showValue(m_manager->variantProperty(shown), value);
    }
}

void CWidgetPropertiesView::geometryChanged(CItemModel *item)
{
    if (!item || item != m_item)
        return;
    const QScopedValueRollback<bool> updating(m_updating, true);
    for (const QString &key : ItemGeometry::keys()) {
        QtVariantProperty *shown = m_manager->variantProperty(m_rows.value(key));
        if (!shown)
            continue;
        const auto live = static_cast<int>(roundedToInteger(item->geometry().valueOf(key)));
        if (shown->value().toInt() != live)
            m_manager->showValue(shown, live);
    }
}

void CWidgetPropertiesView::forgetRemoved(const QModelIndex &parent, int first, int last)
{
    for (QStandardItem *each = m_item; each; each = each->parent()) {
        if (each->index().parent() != parent || each->row() < first || each->row() > last)
            continue;
        const CItemModel *removed = CItemModel::fromItem(each);
        if (removed && removed->isMoving())
            return; // it comes back at once
        cancelDrag();
        m_factory->discardPending();
        m_item = nullptr;
        showItems({});
        return;
    }
}

void CWidgetPropertiesView::onCurrentItemChanged(QtBrowserItem *current)
{
    if (current && !current->parent() && m_rows.value(current->property()->propertyName()))
        m_currentKey = current->property()->propertyName();
}

void CWidgetPropertiesView::resizeEvent(QResizeEvent *event)
{
    QtTreePropertyBrowser::resizeEvent(event);
    fitColumns();
}

void CWidgetPropertiesView::changeEvent(QEvent *event)
{
    QtTreePropertyBrowser::changeEvent(event);
    if (event->type() == QEvent::StyleChange) // the marks of switches are drawn in its colours
        QMetaObject::invokeMethod(this, &CWidgetPropertiesView::drawMarks, Qt::QueuedConnection);
    if (event->type() != QEvent::LanguageChange)
        return;
    showHeader();
    m_factory->commitPending();
    showState();
}

void CWidgetPropertiesView::drawMarks()
{
    for (QtProperty *row : qAsConst(m_rows)) {
        if (m_manager->propertyType(row) != QVariant::Bool)
            continue;
        const bool isModified = row->isModified(); // telling of a change has a row drawn anew
        row->setModified(!isModified);
        row->setModified(isModified);
    }
}

void CWidgetPropertiesView::showHeader()
{
    findChild<QTreeWidget *>()->setHeaderLabels({tr("Property"), tr("Value")});
    fitColumns();
}

void CWidgetPropertiesView::refresh()
{
    m_factory->discardPending(); // a text that was being typed may be none on another chip
    showState();
}
