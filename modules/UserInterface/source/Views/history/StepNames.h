#pragma once

#include <QString>

class QUndoCommand;

namespace StepNames {
/// What a step did, for a user: with the item that it was done to, or how many there were, and the
/// value. Falls back to the step's own text, such as for one that was named in another language.
QString of(const QUndoCommand &step);
} // namespace StepNames
