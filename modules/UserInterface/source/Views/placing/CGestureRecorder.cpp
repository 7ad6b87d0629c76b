#include "CGestureRecorder.h"

#include "CItemModel.h"
#include "CProjectModel.h"

#include <QUndoStack>

#include <utility>

void CGestureRecorder::begin(const QVector<CItemModel *> &items, const QStringList &keys)
{
    m_starts.clear();
    for (CItemModel *item : items)
        m_starts.append(CStartValues(item, keys));
}

QVector<CItemModel *> CGestureRecorder::changedItems() const
{
    QVector<CItemModel *> changed;
    for (const CStartValues &each : m_starts) {
        if (each.isAnyChanged())
            changed.append(each.item());
    }
    return changed;
}

void CGestureRecorder::restore()
{
    const QVector<CStartValues> starts = std::exchange(m_starts, {});
    for (const CStartValues &each : starts)
        each.restore();
}

void CGestureRecorder::record(const QString &macroText)
{
    const bool isAnyChanged = !changedItems().isEmpty();
    const QVector<CStartValues> starts = m_starts;
    QVector<QVector<QVariant>> reached;
    for (const CStartValues &each : starts)
        reached.append(each.reached());
    restore();
    if (!isAnyChanged)
        return;
    QUndoStack &stack = *starts.constFirst().item()->project()->undoStack();
    if (!macroText.isEmpty())
        stack.beginMacro(macroText);
    for (int index = 0; index < starts.size(); ++index)
        starts.at(index).record(reached.at(index), stack);
    if (!macroText.isEmpty())
        stack.endMacro();
}
