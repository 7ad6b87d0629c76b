#include "ToolMain.h"

#include "CToolArguments.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QTextCodec>
#include <cstdio>

namespace kivtools {

static void print(FILE *stream, const QString &text)
{
    std::fputs((text + QLatin1Char('\n')).toUtf8().constData(), stream);
}

static int usageError(const QString &program, const QString &text)
{
    print(stderr, QStringLiteral("%1: %2 (see %1 --help)").arg(program, text));
    return ExitUsage;
}

int toolMain(int argc, char *argv[], const STool &tool)
{
    // Qt would turn what the "C" locale lacks into '?', in arguments and in file names alike.
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    const QCoreApplication application(argc, argv);
    const QString program = QFileInfo(QCoreApplication::arguments().value(0)).completeBaseName();

    CToolArguments arguments(tool.valueOptions,
                             tool.switches + QStringList(QStringLiteral("--help")));
    if (!arguments.parse(QCoreApplication::arguments().mid(1)))
        return usageError(program, arguments.errorText());
    if (arguments.isSet(QStringLiteral("--help"))) {
        print(stdout, tool.usage);
        return ExitOk;
    }
    for (const QString &option : tool.required)
        if (!arguments.isSet(option))
            return usageError(program, QStringLiteral("option '%1' is missing").arg(option));

    const QString error = tool.run(arguments);
    if (error.isEmpty())
        return ExitOk;
    print(stderr, program + QStringLiteral(": ") + error);
    return ExitFailed;
}

} // namespace kivtools
