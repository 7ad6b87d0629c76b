#include "CToolArguments.h"
#include "ConvertedFiles.h"
#include "ImageFile.h"
#include "ToolMain.h"

#include <QFileInfo>
#include <algorithm>
#include <squish.h>
#include <vector>

using namespace kivtools;

static const char Usage[] =
    "usage: dxtpack -i FILE\n"
    "\n"
    "Compresses a .png, .jpg, .jpeg or .bmp image into DXT1 blocks, half a byte a pixel.\n"
    "\n"
    "  -i FILE   the image, at most 4096 x 4096 pixels\n"
    "\n"
    "Writes NAME_DXT1.raw (blocks of 4 x 4 pixels, row by row; sides are filled up to multiples "
    "of\n"
    "4 by repeating the edge) and NAME_DXT1.json (size and layout) into the current folder, NAME\n"
    "being the image's file name without its last suffix. Pixels with an alpha below 128 become\n"
    "transparent, all others opaque.\n"
    "Exit code: 0 done, 1 failed, 2 wrong arguments.";

static constexpr int BlockSide = 4;

/// Red, green, blue and alpha bytes, both sides filled up to whole blocks.
static std::vector<uint8_t> paddedRgba(const QImage &image, int width, int height)
{
    std::vector<uint8_t> bytes;
    bytes.reserve(static_cast<size_t>(width) * static_cast<size_t>(height) * 4);
    for (int y = 0; y < height; ++y) {
        const auto *row =
            reinterpret_cast<const QRgb *>(image.constScanLine(std::min(y, image.height() - 1)));
        for (int x = 0; x < width; ++x) {
            const QRgb pixel = row[std::min(x, image.width() - 1)];
            for (const int value : {qRed(pixel), qGreen(pixel), qBlue(pixel), qAlpha(pixel)})
                bytes.push_back(static_cast<uint8_t>(value));
        }
    }
    return bytes;
}

static QString pack(const CToolArguments &arguments)
{
    QString error;
    const QString path = arguments.value(QStringLiteral("-i"));
    const QImage image = loadArgbImage(path, &error);
    if (image.isNull())
        return error;

    const int width = (image.width() + BlockSide - 1) / BlockSide * BlockSide;
    const int height = (image.height() + BlockSide - 1) / BlockSide * BlockSide;
    const std::vector<uint8_t> rgba = paddedRgba(image, width, height);
    SConvertedBitmap bitmap;
    bitmap.format = QStringLiteral("DXT1");
    bitmap.width = image.width();
    bitmap.height = image.height();
    bitmap.stride = squish::GetStorageRequirements(width, BlockSide, squish::kDxt1);
    bitmap.pixels.resize(squish::GetStorageRequirements(width, height, squish::kDxt1));
    squish::CompressImage(rgba.data(), width, height, bitmap.pixels.data(),
                          squish::kDxt1 | squish::kColourClusterFit);
    return saveConverted(QFileInfo(path).completeBaseName(), bitmap);
}

int main(int argc, char *argv[])
{
    STool tool;
    tool.usage = QString::fromLatin1(Usage);
    tool.valueOptions = QStringList{QStringLiteral("-i")};
    tool.required = tool.valueOptions;
    tool.run = pack;
    return toolMain(argc, argv, tool);
}
