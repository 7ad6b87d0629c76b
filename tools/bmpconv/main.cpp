#include "CToolArguments.h"
#include "ChipFormat.h"
#include "Encoder.h"
#include "ImageFile.h"
#include "ToolMain.h"

#include <QFileInfo>

using namespace kivtools;

static const char Usage[] =
    "usage: bmpconv -i FILE -f CODE [--no-dither]\n"
    "\n"
    "Converts a .png, .jpg, .jpeg or .bmp image into a bitmap format of the chip.\n"
    "\n"
    "  -i FILE       the image, at most 4096 x 4096 pixels\n"
    "  -f CODE       0 ARGB1555, 1 L1, 2 L4, 3 L8, 4 RGB332, 5 ARGB2, 6 ARGB4, 7 RGB565, 9 L2\n"
    "  --no-dither   round each pixel by itself instead of spreading what rounding loses\n"
    "\n"
    "Writes NAME_FORMAT.raw (the chip's bytes) and NAME_FORMAT.json (its size and layout) into\n"
    "the current folder, NAME being the image's file name without its last suffix.\n"
    "Exit code: 0 done, 1 failed, 2 wrong arguments.";

static QString convert(const CToolArguments &arguments)
{
    bool isNumber = false;
    const QString code = arguments.value(QStringLiteral("-f"));
    const SChipFormat *format = chipFormat(code.toInt(&isNumber));
    if (!isNumber || !format)
        return QStringLiteral("there is no format with the code '%1'").arg(code);

    QString error;
    const QString path = arguments.value(QStringLiteral("-i"));
    const QImage image = loadArgbImage(path, &error);
    if (image.isNull())
        return error;
    const bool plain = arguments.isSet(QStringLiteral("--no-dither"));
    return saveConverted(
        QFileInfo(path).completeBaseName(),
        encodeImage(image, *format, plain ? EDither::None : EDither::ErrorDiffusion));
}

int main(int argc, char *argv[])
{
    STool tool;
    tool.usage = QString::fromLatin1(Usage);
    tool.valueOptions = QStringList{QStringLiteral("-i"), QStringLiteral("-f")};
    tool.required = tool.valueOptions;
    tool.switches = QStringList{QStringLiteral("--no-dither")};
    tool.run = convert;
    return toolMain(argc, argv, tool);
}
