#include "CAssetLoader.h"

#include "ImageFile.h"
#include "QxKivEmuLib.h"
#include "displaylist/FontBlock.h"
#include "executor/BitmapFormats.h"
#include "pictures/FileReading.h"

#include <algorithm>
#include <utility>

namespace kivemu {

namespace {

constexpr uint64_t FramesKept = 120; ///< frames that may pass before an unused file is forgotten
constexpr uint64_t Alignment = 4;    ///< of addresses in RAM_G
constexpr size_t MaxPath = 1024;     ///< bytes of a path as it is given
constexpr uint64_t BytesPerWork = 2; ///< of a file that is read
constexpr uint64_t WorkPerPixelByte = 8; ///< of a picture that is decoded

uint64_t aligned(uint64_t size)
{
    return (size + Alignment - 1) / Alignment * Alignment;
}

/// Different spellings of a path mean the same file.
std::string identity(const SFileStamp &stamp)
{
    return std::to_string(stamp.device) + ':' + std::to_string(stamp.inode);
}

std::string paletteFile(const std::string &path)
{
    const size_t slash = path.find_last_of('/');
    const size_t dot = path.find_last_of('.');
    const bool hasSuffix = dot != std::string::npos && (slash == std::string::npos || dot > slash);
    return (hasSuffix ? path.substr(0, dot) : path) + ".lut";
}

} // namespace

/// One file's contents in a chip's format, or a font's glyphs.
struct CAssetLoader::SAsset
{
    SFileStamp stamp;
    SFileStamp paletteStamp;
    uint32_t format = 0;
    int width = 0;
    int height = 0;
    uint32_t stride = 0;
    std::vector<uint8_t> pixels;
    std::vector<uint8_t> palette;
    uint64_t fileBytes = 0;     ///< that a picture was decoded from
    mutable uint64_t frame = 0; ///< the last one that asked for it

    uint64_t ramSize() const { return aligned(pixels.size()) + aligned(palette.size()); }
};

CAssetLoader::CAssetLoader(size_t ramGSize) : m_memory(ramGSize)
{
}

CAssetLoader::~CAssetLoader() = default;

void CAssetLoader::beginFrame(std::string_view workingDirectory)
{
    m_workingDirectory = workingDirectory;
    m_used = 0;
    m_wanted = 0;
    m_refused.clear();
    ++m_frame;
}

void CAssetLoader::endFrame()
{
    if (m_used < m_placed.size())
        keepFirst(m_used);
    for (auto file = m_files.begin(); file != m_files.end();) {
        const bool isOld = file->second->frame + FramesKept < m_frame;
        file = isOld ? m_files.erase(file) : std::next(file);
    }
}

void CAssetLoader::takeBack(const SMark &mark)
{
    m_used = mark.used;
    m_wanted = mark.wanted;
    m_refused = mark.refused;
}

bool CAssetLoader::fail(const std::string &message)
{
    m_error = message;
    return false;
}

/// The asset needs `size` bytes that RAM_G does not have any more. Also what is left out counts
/// once, however often it is asked for.
bool CAssetLoader::failFull(const std::string &key, uint64_t size)
{
    if (m_refused.insert(key).second)
        m_wanted += size;
    m_error = "RAM_G is full: the screen needs " + std::to_string(m_wanted) +
              " bytes, the chip has " + std::to_string(m_memory.capacity());
    return false;
}

size_t CAssetLoader::bytesNeeded() const
{
    return m_refused.empty() ? m_memory.used() : static_cast<size_t>(m_wanted);
}

bool CAssetLoader::resolve(std::string_view path, std::string &resolved)
{
    if (path.empty())
        return fail("no file is named");
    if (path.find('\0') != std::string_view::npos)
        return fail("a path cannot hold zero bytes");
    if (path.size() > MaxPath)
        return fail("the path is longer than " + std::to_string(MaxPath) + " bytes");
    if (path.front() == '/') {
        resolved = path;
        return true;
    }
    if (m_workingDirectory.empty())
        return fail("the project has no working directory to look for '" + std::string(path) + "'");
    resolved = m_workingDirectory + '/' + std::string(path);
    return true;
}

/// Puts an asset into the memory unless this frame has it there already. As long as a frame asks
/// for the same assets in the same order as the one before, nothing is written.
bool CAssetLoader::place(const std::string &key, const std::string &file, const AssetPtr &asset,
                         SLoadedBitmap &bitmap)
{
    asset->frame = m_frame;
    const auto used = m_placed.begin() + static_cast<std::ptrdiff_t>(m_used);
    auto place = std::find_if(m_placed.begin(), used,
                              [&](const SPlaced &placed) { return placed.asset == asset; });
    if (place == used) {
        const bool isAsBefore = used != m_placed.end() && used->asset == asset;
        if (!isAsBefore && !append(asset))
            return failFull(key, asset->ramSize());
        place = m_placed.begin() + static_cast<std::ptrdiff_t>(m_used);
        place->file = file;
        ++m_used;
        m_wanted += asset->ramSize();
    }
    bitmap.source = sourceOf(*place);
    return true;
}

CDisplayListWriter::SBitmapSource CAssetLoader::sourceOf(const SPlaced &placed)
{
    const SAsset &asset = *placed.asset;
    return {placed.address,
            asset.format,
            asset.stride,
            static_cast<uint16_t>(asset.width),
            static_cast<uint16_t>(asset.height),
            placed.palette};
}

std::vector<SPlacedAsset> CAssetLoader::placed() const
{
    std::vector<SPlacedAsset> assets;
    for (const SPlaced &placed : m_placed) {
        const SAsset &asset = *placed.asset;
        assets.push_back({placed.file, asset.format, static_cast<uint32_t>(asset.width),
                          static_cast<uint32_t>(asset.height), asset.stride, placed.address,
                          static_cast<uint32_t>(asset.pixels.size()), placed.palette,
                          static_cast<uint32_t>(asset.palette.size())});
    }
    return assets;
}

std::optional<uint32_t> CAssetLoader::placeFont(const std::string &file, uint32_t turn,
                                                std::vector<uint8_t> block)
{
    const auto isEqual = [&](const SPlaced &placed) {
        return placed.asset->format == EMU_ASSET_FONT && placed.asset->stride == turn &&
               placed.asset->pixels == block;
    };
    // Up to m_used it is shared; behind, the frame before had the same block.
    const auto known = std::find_if(m_placed.begin(), m_placed.end(), isEqual);
    AssetPtr asset = known == m_placed.end() ? nullptr : known->asset;
    if (!asset) {
        std::string fault;
        const auto font = CFontBlock::find(block.data(), block.size(), 0, fault);
        auto made = std::make_shared<SAsset>();
        made->format = EMU_ASSET_FONT;
        made->width = font ? static_cast<int>(font->glyphCount()) : 0;
        made->height = 1;
        made->stride = turn;
        made->pixels = std::move(block);
        asset = made;
    }
    SLoadedBitmap loaded{};
    // What is left out counts each time: whoever asks has one block for each font.
    if (!place("font " + std::to_string(m_refused.size()), file, asset, loaded))
        return std::nullopt;
    return loaded.source.address;
}

void CAssetLoader::keepFirst(size_t count)
{
    std::vector<SPlaced> kept(m_placed.begin(),
                              m_placed.begin() + static_cast<std::ptrdiff_t>(count));
    m_placed.clear();
    m_memory.clear();
    for (const SPlaced &placed : kept)
        if (append(placed.asset)) // they fitted before
            m_placed.back().file = placed.file;
}

/// Writes an asset behind those of this frame, whole or not at all.
bool CAssetLoader::append(const AssetPtr &asset)
{
    if (m_used < m_placed.size())
        keepFirst(m_used);
    if (aligned(m_memory.used()) + aligned(asset->pixels.size()) + asset->palette.size() >
        m_memory.capacity())
        return false;
    SPlaced placed{asset, 0, 0, {}};
    placed.address = m_memory.append(asset->pixels.data(), asset->pixels.size()).value_or(0);
    if (!asset->palette.empty())
        placed.palette = m_memory.append(asset->palette.data(), asset->palette.size()).value_or(0);
    m_placed.push_back(placed);
    return true;
}

bool CAssetLoader::loadBitmap(std::string_view path, uint32_t format, int width, int height,
                              SLoadedBitmap &bitmap)
{
    m_lastWork = 0;
    std::string file;
    if (!resolve(path, file))
        return false;
    if (width < 1 || height < 1 || width > MaxBitmapSide || height > MaxBitmapSide)
        return fail(file + ": a bitmap has 1 to " + std::to_string(MaxBitmapSide) +
                    " pixels a side, not " + std::to_string(width) + " x " +
                    std::to_string(height));
    const uint64_t size = bitmapSize(format, width, height);
    const uint32_t palette = paletteSize(format);
    if (size == 0)
        return fail("the bitmap format is not known");

    SFileStamp stamp;
    SFileStamp paletteStamp;
    const std::string lut = palette > 0 ? paletteFile(file) : std::string();
    std::string problem = stampOfFile(file, stamp);
    if (problem.empty() && palette > 0)
        problem = stampOfFile(lut, paletteStamp);
    if (!problem.empty())
        return fail(problem);
    const std::string key = "bitmap " + std::to_string(format) + ' ' + std::to_string(width) + ' ' +
                            std::to_string(height) + ' ' + identity(stamp);
    if (aligned(size) + palette > m_memory.capacity())
        return failFull(key, aligned(size) + aligned(palette));
    if (stamp.size != size)
        return fail(file + ": has " + std::to_string(stamp.size) + " bytes, but " +
                    std::to_string(width) + " x " + std::to_string(height) +
                    " in this format need " + std::to_string(size));
    if (paletteStamp.size != palette)
        return fail(lut + ": has " + std::to_string(paletteStamp.size) +
                    " bytes, but the palette has " + std::to_string(palette));

    m_lastWork = size / BytesPerWork;
    AssetPtr &known = m_files[key];
    if (!known || !(known->stamp == stamp) || !(known->paletteStamp == paletteStamp)) {
        auto asset = std::make_shared<SAsset>();
        asset->stamp = stamp;
        asset->paletteStamp = paletteStamp;
        asset->format = format;
        asset->width = width;
        asset->height = height;
        asset->stride = bitmapStride(format, width);
        problem = readRegularFile(file, size, asset->pixels);
        if (problem.empty() && palette > 0)
            problem = readRegularFile(lut, palette, asset->palette);
        if (problem.empty() && (asset->pixels.size() != size || asset->palette.size() != palette))
            problem = file + ": changed while it was read";
        if (!problem.empty()) {
            m_files.erase(key);
            return fail(problem);
        }
        known = asset;
    }
    return place(key, file, known, bitmap);
}

bool CAssetLoader::loadImage(std::string_view path, bool mono, SLoadedBitmap &bitmap)
{
    m_lastWork = 0;
    std::string file;
    if (!resolve(path, file))
        return false;
    SFileStamp stamp;
    std::string problem = stampOfFile(file, stamp);
    if (!problem.empty())
        return fail(problem);
    const std::string key = (mono ? "mono " : "image ") + identity(stamp);
    AssetPtr &known = m_files[key];
    if (!known || !(known->stamp == stamp)) {
        SDecodedImage image;
        problem = decodeImageFile(file, mono, m_memory.capacity(), image);
        if (!problem.empty()) {
            m_lastWork = image.fileBytes / BytesPerWork;
            if (image.neededBytes <= m_memory.capacity())
                m_lastWork += image.neededBytes * WorkPerPixelByte;
            m_files.erase(key);
            if (image.neededBytes > m_memory.capacity())
                return failFull(key, aligned(image.neededBytes));
            return fail(problem);
        }
        auto asset = std::make_shared<SAsset>();
        asset->stamp = stamp;
        asset->format = static_cast<uint32_t>(mono ? EBitmapFormat::L8 : EBitmapFormat::Rgb565);
        asset->width = image.width;
        asset->height = image.height;
        asset->stride = bitmapStride(asset->format, image.width);
        asset->pixels = std::move(image.pixels);
        asset->fileBytes = image.fileBytes;
        known = asset;
    }
    m_lastWork = known->fileBytes / BytesPerWork + known->pixels.size() * WorkPerPixelByte;
    return place(key, file, known, bitmap);
}

} // namespace kivemu
