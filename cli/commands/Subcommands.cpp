#include "Subcommands.h"

#include "BudgetCommand.h"
#include "CheckCommand.h"
#include "DiffCommand.h"
#include "VerifyCommand.h"

namespace {

struct SSubcommand
{
    const char *name;
    const char *description;
    int (*run)(const QStringList &arguments);
};

const SSubcommand table[] = {
    {"budget", "Tells where the chip's memory goes.", BudgetCommand::run},
    {"check", "Tells what of a project will go wrong on the device.", CheckCommand::run},
    {"diff", "Tells what differs between two states of a project.", DiffCommand::run},
    {"verify", "Compares the pictures of a project with accepted ones.", VerifyCommand::run},
};

} // namespace

namespace Subcommands {

std::optional<int> run(const QStringList &arguments)
{
    for (const SSubcommand &command : table)
        if (arguments.value(1) == QLatin1String(command.name))
            return command.run(arguments);
    return std::nullopt;
}

QString overview()
{
    QString text;
    for (const SSubcommand &command : table)
        text += QStringLiteral("  panel-export %1  %2\n")
                    .arg(QLatin1String(command.name), -7)
                    .arg(QLatin1String(command.description));
    return text;
}

} // namespace Subcommands
