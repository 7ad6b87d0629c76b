#pragma once

#include <QStringList>

/// `panel-export check PROJECT`: what will go wrong on the device.
namespace CheckCommand {
/// Exit codes: 0 no errors, 1 errors (or warnings that count as such), 2 usage, 3 failed.
int run(const QStringList &arguments);
} // namespace CheckCommand
