#pragma once

#include "SProjectChanges.h"
#include "SProjectState.h"

#include <atomic>

/// What was done to `before` to make it `after`. Equal projects have no changes, wherever they lie
/// and whichever program saved them. Guides and what is hidden on the canvas count, since they are
/// of the project, though no device shows them.
/// `stop`: becomes true when the answer is not wanted any more; it may be anything then.
SProjectChanges projectChanges(const SProjectState &before, const SProjectState &after,
                               const std::atomic<bool> *stop = nullptr);
