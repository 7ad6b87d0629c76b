#pragma once

#include <QStringList>

#include <optional>

/// What panel-export does besides exporting: `panel-export NAME ...`.
namespace Subcommands {
/// Runs the one that the first argument behind the program's name names and gives its exit code.
/// Nothing when it names none; a project that is called like one is given as "./diff".
std::optional<int> run(const QStringList &arguments);
/// For the help: a name and what it does, a line each.
QString overview();
} // namespace Subcommands
