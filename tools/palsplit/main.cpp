#include "CToolArguments.h"
#include "ImageFile.h"
#include "PaletteSplitter.h"
#include "ToolMain.h"

#include <QFileInfo>

using namespace kivtools;

static const char Usage[] =
    "usage: palsplit -i FILE -f KIND\n"
    "\n"
    "Splits an image of at most 256 colours into the chip's index and palette files.\n"
    "\n"
    "  -i FILE   the quantised image, such as photo-fs8.png; always read as PNG, whatever its\n"
    "            suffix; at most 4096 x 4096 pixels\n"
    "  -f KIND   0 PALETTED, 1 PALETTED8, 2 PALETTED565, 3 PALETTED4444\n"
    "\n"
    "Writes NAME_FORMAT.raw (one byte a pixel), NAME_FORMAT.lut (256 palette entries) and\n"
    "NAME_FORMAT.json (size and layout) into the current folder, NAME being the file's name\n"
    "without its last suffix and without \"-fs8\" at its end.\n"
    "Exit code: 0 done, 1 failed, 2 wrong arguments.";

static QString originalBaseName(const QString &path)
{
    const QString mark = QStringLiteral("-fs8");
    QString name = QFileInfo(path).completeBaseName();
    if (name.endsWith(mark))
        name.chop(mark.size());
    return name;
}

static QString split(const CToolArguments &arguments)
{
    const QString kind = arguments.value(QStringLiteral("-f"));
    if (kind.size() != 1 || kind < QLatin1String("0") || kind > QLatin1String("3"))
        return QStringLiteral("there is no palette kind '%1'").arg(kind);

    QString error;
    const QString path = arguments.value(QStringLiteral("-i"));
    // The quantiser writes PNG under whatever suffix its input had.
    const QImage image = loadImage(path, "png", &error);
    if (image.isNull())
        return error;
    const auto bitmap = splitPalette(image, static_cast<EPaletteKind>(kind.toInt()));
    if (!bitmap)
        return QStringLiteral("%1: has more than 256 colours").arg(path);
    return saveConverted(originalBaseName(path), *bitmap);
}

int main(int argc, char *argv[])
{
    STool tool;
    tool.usage = QString::fromLatin1(Usage);
    tool.valueOptions = QStringList{QStringLiteral("-i"), QStringLiteral("-f")};
    tool.required = tool.valueOptions;
    tool.run = split;
    return toolMain(argc, argv, tool);
}
