#include "ReplaceStep.h"

#include "CCommandChangeItemProperty.h"
#include "CProjectModel.h"

#include <QCoreApplication>
#include <QUndoStack>

#include <memory>

void ReplaceStep::push(CProjectModel &project, const QVector<SReplacement> &replacements)
{
    auto step = std::make_unique<QUndoCommand>();
    int places = 0;
    for (const SReplacement &each : replacements) {
        for (const SReplacement::SValue &value : each.values)
            new CCommandChangeItemProperty(each.item, value.key, value.after, value.before,
                                           step.get()); // which owns it
        places += each.values.isEmpty() ? 0 : 1;
    }
    if (places == 0)
        return;
    step->setText(
        places == 1
            ? QCoreApplication::translate("ReplaceStep", "Replace in one place")
            : QCoreApplication::translate("ReplaceStep", "Replace in %1 places").arg(places));
    project.undoStack()->push(step.release());
}
