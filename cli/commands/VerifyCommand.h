#pragma once

#include <QStringList>

/// `panel-export verify PROJECT --baseline DIR`: holds pictures against accepted ones.
namespace VerifyCommand {
/// Exit codes: 0 all are equal, 1 not, 2 usage, 3 failed.
int run(const QStringList &arguments);
} // namespace VerifyCommand
