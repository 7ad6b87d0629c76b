#pragma once

#include <QStringList>
#include <functional>

namespace kivtools {

class CToolArguments;

enum EExitCode { ExitOk = 0, ExitFailed = 1, ExitUsage = 2 };

/// One tool as its main() describes it.
struct STool
{
    QString usage; ///< the whole text of --help
    QStringList valueOptions;
    QStringList required; ///< those of the value options that must be there
    QStringList switches;
    /// The work itself; gives an error text, empty when all went well.
    std::function<QString(const CToolArguments &)> run;
};

/// Makes the application object, reads the arguments and runs the tool. Errors go to stderr, the
/// result is the exit code. File names are taken as UTF-8 in every locale.
int toolMain(int argc, char *argv[], const STool &tool);

} // namespace kivtools
