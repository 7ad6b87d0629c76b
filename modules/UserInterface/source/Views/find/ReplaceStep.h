#pragma once

#include "CItemReplacement.h"

class CProjectModel;

namespace ReplaceStep {
/// Carries the replacements out as one step of the project's undo stack; those that are refused are
/// left out. Nothing is recorded when nothing is left.
void push(CProjectModel &project, const QVector<SReplacement> &replacements);
} // namespace ReplaceStep
