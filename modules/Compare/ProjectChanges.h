#pragma once

#include "SProjectChanges.h"

class CProjectModel;

/// What was done to `before` to make it `after`. Equal projects have no changes, wherever they lie
/// and whichever program saved them. What is not seen on the device (guides for instance) is left
/// out.
SProjectChanges projectChanges(const CProjectModel &before, const CProjectModel &after);
