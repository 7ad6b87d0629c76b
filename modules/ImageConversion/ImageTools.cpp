#include "ImageTools.h"

#include "CBitmapFormatTable.h"
#include "CConversionPaths.h"

#include <QFileInfo>

namespace {

using EPath = CBitmapFormatTable::EPath;

QString toolPath(const QString &programFolder, const char *tool)
{
    return programFolder + QStringLiteral("/Image conversion tool for KIV/") + QLatin1String(tool);
}

/// A file name that no tool takes for an option (or Qt, at ":", for a resource).
QString asArgument(const QString &fileName)
{
    const bool isOdd =
        fileName.startsWith(QLatin1Char('-')) || fileName.startsWith(QLatin1Char(':'));
    return isOdd ? QStringLiteral("./") + fileName : fileName;
}

} // namespace

namespace ImageTools {

SToolCall conversion(const CConversionPaths &paths, int formatCode, const QString &programFolder)
{
    const QString folder = paths.folder(formatCode);
    const QStringList input{QStringLiteral("-i"), asArgument(paths.fileName())};
    const QString format = QStringLiteral("-f");
    switch (CBitmapFormatTable::path(formatCode)) {
    case EPath::General:
        return {toolPath(programFolder, "bmpconv/bmpconv.exe"),
                input + QStringList{format, QString::number(formatCode)}, folder};
    case EPath::Dxt1:
        return {toolPath(programFolder, "DXT1/dxtpack.exe"), input, folder};
    case EPath::Palette:
        return {QLatin1Char('"') + toolPath(programFolder, "Palette/palsplit.exe") +
                    QLatin1Char('"'),
                {QStringLiteral("-i"), asArgument(quantisedNames(paths).first()), format,
                 CBitmapFormatTable::paletteKind(formatCode)},
                folder};
    case EPath::None:
        break;
    }
    return {};
}

SToolCall quantiser(const CConversionPaths &paths, int formatCode, const QString &programFolder)
{
    return {toolPath(programFolder, "Palette/pngquant.exe"),
            {QStringLiteral("-f"), asArgument(paths.fileName())},
            paths.folder(formatCode)};
}

bool needsQuantiser(int formatCode)
{
    return CBitmapFormatTable::path(formatCode) == EPath::Palette;
}

QStringList quantisedNames(const CConversionPaths &paths)
{
    const QFileInfo source(paths.fileName());
    const QString end = QStringLiteral("-fs8.png");
    return {QFileInfo(paths.quantised()).fileName(), source.completeBaseName() + end,
            source.baseName() + end};
}

} // namespace ImageTools
