#include "PropertyStep.h"

#include "CCommandChangeItemProperty.h"
#include "CItemModel.h"
#include "CProjectModel.h"

#include <QUndoStack>

#include <algorithm>
#include <cmath>
#include <memory>

bool PropertyStep::isChange(const CItemModel &item, const QString &key, const QVariant &value)
{
    constexpr double tolerance = 0.0001; // of real numbers
    const QVariant old = item.propertyValue(key);
    if (value.type() == QVariant::Double &&
        std::abs(value.toDouble() - old.toDouble()) <= tolerance)
        return false;
    if (value == old)
        return false;
    CWidgetProperty changed = item.properties().value(key);
    changed.setValue(value);
    return changed.text() != item.propertyText(key);
}

void PropertyStep::push(const Changes &changes, const QString &text)
{
    Changes real;
    std::copy_if(changes.begin(), changes.end(), std::back_inserter(real),
                 [](const SChange &each) { return isChange(*each.item, each.key, each.value); });
    if (real.isEmpty())
        return;
    const auto command = [](const SChange &change, QUndoCommand *parent) {
        return new CCommandChangeItemProperty(change.item, change.key, change.value,
                                              change.item->propertyValue(change.key), parent);
    };
    QUndoStack *stack = real.constFirst().item->project()->undoStack();
    if (real.size() == 1) {
        stack->push(command(real.constFirst(), nullptr));
        return;
    }
    auto step = std::make_unique<QUndoCommand>(text);
    for (const SChange &each : qAsConst(real))
        command(each, step.get()); // which owns it
    stack->push(step.release());
}
