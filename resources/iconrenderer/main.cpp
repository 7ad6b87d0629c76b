#include "CIconSet.h"

#include <QGuiApplication>

#include <cstdio>

/// iconrenderer LIST.qrc FOLDER [--icons FILE…] [--controls FILE…] [--mark FILE]
/// Exit codes: 0 all rendered, 1 a drawing or a file failed, 2 usage.
int main(int argc, char *argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    if (arguments.size() < 4) {
        std::fputs("usage: iconrenderer LIST.qrc FOLDER [--icons FILE...] [--controls FILE...] "
                   "[--mark FILE]\n",
                   stderr);
        return 2;
    }

    CIconSet icons(arguments.at(2));
    QString error;
    QString kind;
    for (int i = 3; i < arguments.size() && error.isEmpty(); ++i) {
        const QString &argument = arguments.at(i);
        if (argument.startsWith(QStringLiteral("--")))
            kind = argument;
        else if (kind == QStringLiteral("--icons"))
            error = icons.addIcon(argument);
        else if (kind == QStringLiteral("--controls"))
            error = icons.addControl(argument);
        else if (kind == QStringLiteral("--mark"))
            error = icons.addApplicationMark(argument);
        else
            error = kind + QStringLiteral(": no such kind of drawing");
    }
    if (error.isEmpty())
        error = icons.writeResourceList(arguments.at(1));
    if (!error.isEmpty())
        std::fprintf(stderr, "iconrenderer: %s\n", qPrintable(error));
    return error.isEmpty() ? 0 : 1;
}
