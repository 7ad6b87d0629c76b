#include "CSelectionCommands.h"

#include "CItemModel.h"
#include "CItemView.h"
#include "CProjectModel.h"
#include "CScreenModel.h"
#include "CScreenScene.h"
#include "ItemClipboard.h"
#include "ItemGeometry.h"
#include "ItemMove.h"
#include "ItemOperations.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMenu>
#include <QMimeData>
#include <QSet>
#include <QUndoStack>

#include <algorithm>
#include <cmath>

CSelectionCommands::CSelectionCommands(CScreenScene *scene, QObject *parent)
    : QObject(parent), m_scene(scene)
{
    connect(scene, &CScreenScene::itemsCopied, this,
            [this](const QVector<CItemModel *> &copies, const QPointF &from) {
                m_copies = copies; // to be repeated, as those of duplicate() are
                m_copiedFrom = from;
            });
}

CScreenModel *CSelectionCommands::screen() const
{
    return m_scene->screen();
}

QUndoStack &CSelectionCommands::undoStack() const
{
    return *screen()->project()->undoStack();
}

QVector<CItemModel *> CSelectionCommands::selectedItems() const
{
    return m_scene->selectedModelItems();
}

void CSelectionCommands::copy()
{
    if (QMimeData *copied = ItemClipboard::toMimeData(selectedItems()))
        QGuiApplication::clipboard()->setMimeData(copied);
}

void CSelectionCommands::cut()
{
    ItemClipboard::cut(selectedItems());
}

void CSelectionCommands::paste()
{
    paste(std::nullopt);
}

void CSelectionCommands::pasteInPlace()
{
    paste(QPoint());
}

void CSelectionCommands::pasteToReplace()
{
    const QMimeData *copied = QGuiApplication::clipboard()->mimeData();
    if (!ItemClipboard::canPaste(copied)) {
        Q_EMIT message(tr("The clipboard holds no widgets, so nothing was replaced."));
        return;
    }
    QString problem;
    const QVector<CItemModel *> pasted = ItemClipboard::replace(selectedItems(), *copied, &problem);
    if (!problem.isEmpty())
        Q_EMIT message(problem);
    if (!pasted.isEmpty())
        m_scene->chooseModelItems(pasted);
}

void CSelectionCommands::duplicate()
{
    const QVector<CItemModel *> items = selectedItems();
    const QPointF corner = ItemGeometry::frameOf(items).topLeft();
    std::optional<QPoint> by;
    if (items == m_copies && corner != m_copiedFrom)
        by = (corner - m_copiedFrom).toPoint();
    m_copies = ItemClipboard::duplicate(*m_scene->holder(), items, by);
    m_copiedFrom = corner;
    if (!m_copies.isEmpty())
        m_scene->chooseModelItems(m_copies);
}

void CSelectionCommands::paste(std::optional<QPoint> by)
{
    const QMimeData *copied = QGuiApplication::clipboard()->mimeData();
    if (!ItemClipboard::canPaste(copied)) {
        Q_EMIT message(tr("The clipboard holds neither widgets nor pages, so nothing was pasted."));
        return;
    }
    QString problem;
    const QVector<CItemModel *> pasted =
        ItemClipboard::paste(*m_scene->holder(), *copied, &problem, by);
    if (!problem.isEmpty())
        Q_EMIT message(problem);
    if (!pasted.isEmpty())
        m_scene->chooseModelItems(pasted);
}

/// What there is to be selected, front first.
QVector<CItemModel *> CSelectionCommands::choosable() const
{
    QVector<CItemModel *> items;
    const CItemModel *parent = m_scene->holder();
    for (int row = 0; row < parent->rowCount(); ++row) {
        CItemModel *item = parent->childItem(row);
        if (!item->isHidden())
            items.append(item);
    }
    return items;
}

void CSelectionCommands::selectAll()
{
    m_scene->chooseModelItems(choosable());
}

void CSelectionCommands::selectNone()
{
    m_scene->chooseModelItems({});
}

void CSelectionCommands::selectInverse()
{
    const QVector<CItemModel *> before = selectedItems();
    const QSet<CItemModel *> selected(before.begin(), before.end());
    QVector<CItemModel *> items;
    for (CItemModel *item : choosable()) {
        if (!selected.contains(item))
            items.append(item);
    }
    m_scene->chooseModelItems(items);
}

void CSelectionCommands::toFront()
{
    ItemOperations::order(selectedItems(), ItemOperations::EOrder::ToFront);
}

void CSelectionCommands::toBack()
{
    ItemOperations::order(selectedItems(), ItemOperations::EOrder::ToBack);
}

void CSelectionCommands::forward()
{
    ItemOperations::order(selectedItems(), ItemOperations::EOrder::Forward);
}

void CSelectionCommands::backward()
{
    ItemOperations::order(selectedItems(), ItemOperations::EOrder::Backward);
}

void CSelectionCommands::group()
{
    const QVector<CItemModel *> items = selectedItems();
    const QPointF first = ItemGeometry::frameOf(items).topLeft();
    const QPoint corner(static_cast<int>(std::floor(first.x())),
                        static_cast<int>(std::floor(first.y())));
    if (CItemModel *made = ItemOperations::group(*screen(), items, corner))
        m_scene->chooseModelItems({made});
}

void CSelectionCommands::ungroup()
{
    const QVector<CItemModel *> items = selectedItems();
    const bool anyLocked = std::any_of(items.begin(), items.end(), [](const CItemModel *each) {
        return each->kind() == CItemModel::Kind::Group && each->isLocked();
    });
    if (anyLocked)
        Q_EMIT message(tr("A locked group stays together. Unlock it to ungroup it."));
    const QVector<CItemModel *> members = ItemOperations::ungroup(*screen(), items);
    if (!members.isEmpty())
        m_scene->chooseModelItems(members);
}

CItemModel *CSelectionCommands::selectNext()
{
    const QVector<CItemModel *> all = choosable();
    if (all.isEmpty())
        return nullptr;
    const QVector<CItemModel *> items = selectedItems();
    const int row = items.isEmpty() ? -1 : items.constLast()->row();
    const auto isBehind = [row](const CItemModel *each) { return each->row() > row; };
    const auto found = std::find_if(all.begin(), all.end(), isBehind);
    CItemModel *next = found == all.end() ? all.constFirst() : *found;
    m_scene->chooseModelItems({next});
    return next;
}

CItemModel *CSelectionCommands::enterable() const
{
    const QVector<CItemModel *> items = selectedItems();
    CItemModel *group = items.size() == 1 ? items.constFirst() : nullptr;
    const bool isOpen = group && group->kind() == CItemModel::Kind::Group &&
                        !group->isUnderLock() && !group->isUnderHidden();
    for (int row = 0; isOpen && row < group->rowCount(); ++row) {
        if (!group->childItem(row)->isHidden())
            return group;
    }
    return nullptr;
}

void CSelectionCommands::enterGroup()
{
    CItemModel *group = enterable();
    for (int row = 0; group && row < group->rowCount(); ++row) {
        if (group->childItem(row)->isHidden())
            continue;
        m_scene->chooseModelItems({group->childItem(row)});
        return;
    }
}

bool CSelectionCommands::enterGroupAt(const QPointF &scenePos)
{
    CItemModel *group = enterable();
    for (int row = 0; group && row < group->rowCount(); ++row) {
        const CItemView *view = m_scene->viewOf(group->childItem(row));
        if (!view->contains(view->mapFromScene(scenePos)))
            continue;
        m_scene->chooseModelItems({view->item()});
        return true;
    }
    return false;
}

bool CSelectionCommands::leaveGroup()
{
    CItemModel *group = m_scene->entered();
    if (group)
        m_scene->chooseModelItems({group});
    return group != nullptr;
}

void CSelectionCommands::toggleHidden()
{
    ItemOperations::toggleHidden(selectedItems());
}

void CSelectionCommands::toggleLock()
{
    ItemOperations::toggleLock(selectedItems());
}

// --- moving ---

void CSelectionCommands::move(CItemModel *item, const QPointF &newPosition)
{
    QUndoStack &stack = undoStack();
    const bool both = ItemMove::isBetweenTwoPoints(*item);
    if (both)
        stack.beginMacro(tr("Move Object"));
    for (QUndoCommand *each : ItemMove::commands(item, newPosition))
        stack.push(each);
    if (both)
        stack.endMacro();
}

void CSelectionCommands::moveAll(const QVector<CItemModel *> &items,
                                 const QVector<QPointF> &newPositions)
{
    for (int index = 0; index < items.size(); ++index) {
        CItemModel *item = items.at(index);
        Q_EMIT moveWanted(item, QPointF(item->x(), item->y()), newPositions.at(index));
    }
}

void CSelectionCommands::moveDragged(const QVector<CItemModel *> &items,
                                     const QVector<QPointF> &newPositions)
{
    const bool isOneLine = items.size() == 1 && ItemMove::isBetweenTwoPoints(*items.constFirst());
    QUndoStack &stack = undoStack();
    if (!isOneLine)
        stack.beginMacro(tr("Move Selected Items"));
    moveAll(items, newPositions);
    if (!isOneLine)
        stack.endMacro();
}

void CSelectionCommands::nudge(int dx, int dy)
{
    QVector<CItemModel *> items;
    QVector<QPointF> positions;
    for (CItemModel *each : selectedItems()) {
        if (each->isLocked())
            continue;
        items.append(each);
        positions.append(QPointF(each->x() + dx, each->y() + dy));
    }
    QUndoStack &stack = undoStack();
    if (items.size() > 1)
        stack.beginMacro(tr("Move Selected Items")); // several items are one step as well
    moveAll(items, positions);
    if (items.size() > 1)
        stack.endMacro();
}

void CSelectionCommands::addTo(QMenu *menu)
{
    const QVector<CItemModel *> items = selectedItems();
    const bool any = !items.isEmpty();
    const bool anyGroup = std::any_of(items.begin(), items.end(), [](const CItemModel *each) {
        return each->kind() == CItemModel::Kind::Group && !each->isLocked();
    });
    const bool isInGroup = m_scene->entered() != nullptr;
    const auto add = [this, menu](const char *name, const QString &text,
                                  void (CSelectionCommands::*command)(), bool enabled) {
        QAction *action = menu->addAction(text, this, command);
        action->setObjectName(QLatin1String(name));
        action->setEnabled(enabled);
        return action;
    };
    using EOrder = ItemOperations::EOrder;
    const auto canOrder = [&items](EOrder where) { return ItemOperations::canOrder(items, where); };
    add("Copy", tr("Copy"), &CSelectionCommands::copy, any);
    add("Paste", tr("Paste"), &CSelectionCommands::paste,
        ItemClipboard::canPaste(QGuiApplication::clipboard()->mimeData()));
    add("Cut", tr("Cut"), &CSelectionCommands::cut, any);
    menu->addSeparator();
    add("BringToFront", tr("Bring to Front"), &CSelectionCommands::toFront,
        canOrder(EOrder::ToFront));
    add("SendToBack", tr("Send to Back"), &CSelectionCommands::toBack, canOrder(EOrder::ToBack));
    add("BringForward", tr("Bring Forward"), &CSelectionCommands::forward,
        canOrder(EOrder::Forward));
    add("SendBackward", tr("Send Backward"), &CSelectionCommands::backward,
        canOrder(EOrder::Backward));
    add("LockUnlock", items.size() > 1 ? tr("Lock/Unlock Multiple") : tr("Lock/Unlock"),
        &CSelectionCommands::toggleLock, any);
    add("Group", tr("Group Selected"), &CSelectionCommands::group, items.size() > 1 && !isInGroup);
    add("Ungroup", tr("Ungroup"), &CSelectionCommands::ungroup, anyGroup && !isInGroup);
    menu->addSeparator();
    add("Duplicate", tr("Duplicate"), &CSelectionCommands::duplicate, any);
    add("HideShow", tr("Hide/Show"), &CSelectionCommands::toggleHidden, any);
    add("EnterGroup", tr("Enter Group"), &CSelectionCommands::enterGroup, enterable() != nullptr)
        ->setShortcut(Qt::Key_Return);
}
