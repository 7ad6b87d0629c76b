#pragma once

#include "displaylist/CDisplayListWriter.h"

#include "executor/CRamG.h"

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace kivemu {

/// A bitmap that lies in RAM_G.
struct SLoadedBitmap
{
    CDisplayListWriter::SBitmapSource source;
};

/// One asset of the frame: where it lies, and what it came from. As EmuAsset, which see.
struct SPlacedAsset
{
    std::string
        file; ///< as the script named it first in the frame, the working directory before it
    uint32_t format;
    uint32_t width;
    uint32_t height;
    uint32_t stride;
    uint32_t address;
    uint32_t bytes;
    uint32_t paletteAddress;
    uint32_t paletteBytes;
};

/// Brings the assets of a screen into RAM_G: each once, in the order in which the script asks for
/// them, so that the same screen always gives the same bytes. Files are read again only when they
/// have changed; a frame with the assets of the one before leaves the memory untouched.
/// Files:   regular files only, their size checked against the format before they are read.
class CAssetLoader
{
public:
    explicit CAssetLoader(size_t ramGSize);
    ~CAssetLoader();

    /// Relative paths are taken from `workingDirectory`; without one they are errors.
    void beginFrame(std::string_view workingDirectory);
    /// Takes assets out of the memory that this frame did not ask for.
    void endFrame();

    /// A file of pixels in one of the chip's formats; a palette lies beside as "<base name>.lut".
    /// False and error() when it cannot be loaded; so for the next.
    bool loadBitmap(std::string_view path, uint32_t format, int width, int height,
                    SLoadedBitmap &bitmap);
    /// A JPEG or PNG file, or the first frame of an AVI file, as RGB565, or L8 when mono.
    bool loadImage(std::string_view path, bool mono, SLoadedBitmap &bitmap);

    /// Puts a font block behind what the frame has asked for; an equal one is shared. `file`: the
    /// font's. `turn`: its handle and how the glyphs are turned, see EMU_ASSET_FONT. Nothing and
    /// error() when RAM_G is full.
    std::optional<uint32_t> placeFont(const std::string &file, uint32_t turn,
                                      std::vector<uint8_t> block);
    /// What the frame has asked for so far.
    struct SMark
    {
        size_t used;
        uint64_t wanted;
        std::set<std::string> refused;
    };
    SMark mark() const { return {m_used, m_wanted, m_refused}; }
    /// As if the frame had not asked for what it did since.
    void takeBack(const SMark &mark);

    const std::string &error() const { return m_error; }
    /// What the last load counts as, in the script's units of work: from the file's bytes and the
    /// picture's pixels, so that it is the same whether the file was at hand or had to be read.
    uint64_t lastWork() const { return m_lastWork; }

    const CRamG &memory() const { return m_memory; }
    /// Bytes that all of the frame's assets need, also those for which there was no room.
    size_t bytesNeeded() const;
    /// The assets of the last frame, by ascending addresses.
    std::vector<SPlacedAsset> placed() const;

private:
    struct SAsset;
    using AssetPtr = std::shared_ptr<const SAsset>;
    struct SPlaced
    {
        AssetPtr asset;
        uint32_t address;
        uint32_t palette;
        std::string file;
    };

    bool fail(const std::string &message);
    bool failFull(const std::string &key, uint64_t size);
    bool resolve(std::string_view path, std::string &resolved);
    bool place(const std::string &key, const std::string &file, const AssetPtr &asset,
               SLoadedBitmap &bitmap);
    static CDisplayListWriter::SBitmapSource sourceOf(const SPlaced &placed);
    void keepFirst(size_t count);
    bool append(const AssetPtr &asset);

    CRamG m_memory;
    std::string m_workingDirectory;
    std::string m_error;
    uint64_t m_lastWork = 0;
    std::vector<SPlaced> m_placed;   ///< in the order of their addresses
    size_t m_used = 0;               ///< of these, asked for in this frame
    std::set<std::string> m_refused; ///< keys of this frame's assets for which there was no room
    uint64_t m_wanted = 0; ///< bytes that the frame's assets need, those left out included
    std::map<std::string, AssetPtr> m_files; ///< by kind of reading and path
    uint64_t m_frame = 0;
};

} // namespace kivemu
