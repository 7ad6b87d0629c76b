#pragma once

#include <QStringList>

/// `panel-export diff BEFORE AFTER`: what differs, item by item and pixel by pixel.
namespace DiffCommand {
/// Exit codes: 0 equal, 1 different, 2 usage, 3 failed.
int run(const QStringList &arguments);
} // namespace DiffCommand
