#pragma once

#include "SBudget.h"
#include "SScreenExport.h"

class CProjectModel;

/// Where the chip's memory goes. Items are the project's; the GUI thread only.
namespace ProjectBudget {

/// `render`: of the screen as it is now, with its memory.
SScreenBudget ofScreen(const CItemModel &screen, const SScreenExport &render);
/// Puts those of all screens together.
SProjectBudget ofProject(const QVector<SScreenBudget> &screens);

} // namespace ProjectBudget
