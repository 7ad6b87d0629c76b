#pragma once

#include <QStringList>

/// `panel-export budget PROJECT`: where the chip's memory goes.
namespace BudgetCommand {
/// Exit codes: 0 every screen fits, 1 one does not, 2 usage, 3 failed.
int run(const QStringList &arguments);
} // namespace BudgetCommand
