#include "StepNames.h"

#include "CCommandChangeItemProperty.h"
#include "CCommandDeleteItem.h"
#include "CCommandGroupItem.h"
#include "CCommandMoveItems.h"
#include "CCommandOrderItem.h"
#include "CItemModel.h"
#include "CWidgetProperty.h"
#include "PropertyKey.h"
#include "PropertyWords.h"
#include "ShownText.h"

#include <QCoreApplication>
#include <QSet>
#include <QUndoCommand>

namespace {
constexpr int MaxValue = 40; // characters of a value

class CTexts
{
    Q_DECLARE_TR_FUNCTIONS(StepNames)
};

/// The items that a step is about, as far as its commands know them.
struct SItems
{
    QSet<const CItemModel *> known;
    int others = 0; ///< that have no name to be asked for, since they may be gone
    QString name;   ///< of one of them

    int count() const { return known.size() + others; }
    void add(const CItemModel *item)
    {
        known.insert(item);
        name = item->name();
    }
};

void collect(const QUndoCommand &step, SItems &items)
{
    if (const auto *change = dynamic_cast<const CCommandChangeItemProperty *>(&step))
        items.add(change->item());
    else if (const auto *order = dynamic_cast<const CCommandOrderItem *>(&step))
        for (const CItemModel *each : order->items())
            items.add(each);
    else if (const auto *move = dynamic_cast<const CCommandMoveItems *>(&step))
        for (const CItemModel *each : move->items())
            items.add(each);
    else if (const auto *removal = dynamic_cast<const CCommandDeleteItem *>(&step))
        items.others += removal->itemCount();
    else if (const auto *group = dynamic_cast<const CCommandGroupItem *>(&step))
        items.others += group->itemCount();
    for (int index = 0; index < step.childCount(); ++index)
        collect(*step.child(index), items);
}

struct SRow
{
    const char *context; ///< in which the step is named
    const char *text;    ///< that it has
    const char *one;     ///< "%1" is the item
    const char *several; ///< "%1" is how many there are
};

// clang-format off
const SRow Rows[] = {
    {"CSelectionCommands", "Move Selected Items", QT_TRANSLATE_NOOP("StepNames", "Move %1"), QT_TRANSLATE_NOOP("StepNames", "Move %1 items")},
    {"CSelectionCommands", "Move Object", QT_TRANSLATE_NOOP("StepNames", "Move %1"), QT_TRANSLATE_NOOP("StepNames", "Move %1 items")},
    {"QObject", "Resize Item", QT_TRANSLATE_NOOP("StepNames", "Resize %1"), QT_TRANSLATE_NOOP("StepNames", "Resize %1 items")},
    {"QObject", "Rotate Item", QT_TRANSLATE_NOOP("StepNames", "Turn %1"), QT_TRANSLATE_NOOP("StepNames", "Turn %1 items")},
    {"QObject", "Bring To Front Selected Items", QT_TRANSLATE_NOOP("StepNames", "Bring %1 to the front"), QT_TRANSLATE_NOOP("StepNames", "Bring %1 items to the front")},
    {"QObject", "Send To Back Selected Items", QT_TRANSLATE_NOOP("StepNames", "Send %1 to the back"), QT_TRANSLATE_NOOP("StepNames", "Send %1 items to the back")},
    {"QObject", "Bring Forward Selected Items", QT_TRANSLATE_NOOP("StepNames", "Bring %1 forward"), QT_TRANSLATE_NOOP("StepNames", "Bring %1 items forward")},
    {"QObject", "Send Backward Selected Items", QT_TRANSLATE_NOOP("StepNames", "Send %1 backward"), QT_TRANSLATE_NOOP("StepNames", "Send %1 items backward")},
    {"QObject", "Move Item", QT_TRANSLATE_NOOP("StepNames", "Move %1 in the order"), QT_TRANSLATE_NOOP("StepNames", "Move %1 items in the order")},
    {"CSelectionCommands", "Lock/Unlock", QT_TRANSLATE_NOOP("StepNames", "Lock or unlock %1"), QT_TRANSLATE_NOOP("StepNames", "Lock or unlock %1 items")},
    {"CSelectionCommands", "Lock/Unlock Multiple", QT_TRANSLATE_NOOP("StepNames", "Lock or unlock %1"), QT_TRANSLATE_NOOP("StepNames", "Lock or unlock %1 items")},
    {"CMainWindow", "Delete Selected Items", nullptr, QT_TRANSLATE_NOOP("StepNames", "Delete %1 items")},
    {"CSelectionCommands", "Cut", nullptr, QT_TRANSLATE_NOOP("StepNames", "Cut %1 items")},
    {"QObject", "Group Selected Items", nullptr, QT_TRANSLATE_NOOP("StepNames", "Group %1 items")},
};
// clang-format on

/// A change of one property, alone or as all that a step is.
QString changeText(const CCommandChangeItemProperty &change)
{
    const CItemModel &item = *change.item();
    const QString name = ShownText::name(item.name());
    const auto shown = [&](const QVariant &value) {
        CWidgetProperty property = item.properties().value(change.key());
        property.setValue(value);
        const QString text = PropertyWords::value(item, change.key(), property.text());
        return ShownText::name(text.size() > MaxValue ? text.left(MaxValue) + QChar(0x2026) : text);
    };
    if (change.key() == PropertyKey::Name)
        return CTexts::tr("Rename %1 to %2")
            .arg(shown(change.oldValue()), shown(change.newValue()));
    if (change.key() == PropertyKey::X || change.key() == PropertyKey::Y) // such as by a key
        return CTexts::tr("Move %1").arg(name);
    const QString caption = PropertyWords::caption(item, change.key());
    if (!change.newValue().isValid() || shown(change.newValue()).isEmpty())
        return CTexts::tr("Clear %1 of %2").arg(caption, name);
    return CTexts::tr("Set %1 of %2 to %3").arg(caption, name, shown(change.newValue()));
}
} // namespace

QString StepNames::of(const QUndoCommand &step)
{
    if (const auto *change = dynamic_cast<const CCommandChangeItemProperty *>(&step))
        return changeText(*change);
    for (const SRow &row : Rows) {
        if (step.text() != QCoreApplication::translate(row.context, row.text))
            continue;
        SItems items;
        collect(step, items);
        if (items.count() > 1)
            return CTexts::tr(row.several).arg(items.count());
        if (items.count() == 1 && row.one && !items.name.isEmpty())
            return CTexts::tr(row.one).arg(ShownText::name(items.name));
        if (items.count() == 1 && step.childCount() == 1)
            return step.child(0)->text(); // "Delete Box"
    }
    return step.text();
}
