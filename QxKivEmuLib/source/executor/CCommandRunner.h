#pragma once

#include "CBitmapCache.h"
#include "CDrawingBudget.h"
#include "CErrorLog.h"
#include "displaylist/CommandTable.h"
#include "raster/BitmapImage.h"
#include "raster/RasterTypes.h"

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace kivemu {

class CRamG;
class CRasterizer;

/// One execution of a display list: the chip's state, and one function for each command that draws
/// or changes it.
class CCommandRunner
{
public:
    /// All must outlive the runner. `vertices` is working memory, kept by the caller so that it
    /// need not grow anew in every frame. `cancelled` may be null.
    CCommandRunner(CRasterizer &rasterizer, const CRamG &memory, CBitmapCache &bitmaps,
                   std::vector<SPoint> &vertices, const std::atomic<bool> *cancelled);

    /// Draws onto a black frame until the end command; gives what is wrong in the list.
    std::vector<SExecutionError> run(const uint32_t *words, size_t count);

private:
    /// What SAVE keeps.
    struct SState
    {
        SPaint paint{0xFFFFFFFF, true};
        Sub16 lineWidth = 16;
        SClip clip{0, 0, 0, 0};
    };
    /// Where the next character goes, in sixteenths; wide enough for any number of characters.
    struct SPen
    {
        int font;
        int64_t x;
        int baseline; ///< whole pixels
    };
    using Function = void (*)(CCommandRunner &, const uint32_t *words);
    struct SEntry
    {
        Function function; ///< null: no such opcode
        bool draws;
        uint32_t headerMax;
        size_t operandWords;
    };
    static std::array<SEntry, 256> makeEntries();
    template<void (CCommandRunner::*Member)(const uint32_t *words)>
    static void call(CCommandRunner &runner, const uint32_t *words);

    size_t step(const uint32_t *words, size_t count);
    void fail(EOpcode opcode, const std::string &what);
    void dropVertices();
    bool isLeftOut(EOpcode opcode);
    const SBitmapImage *image();
    std::string bitmapFault() const;

    // The commands; `words` starts with the header.
    void end(const uint32_t *words);
    void clear(const uint32_t *words);
    void colour(const uint32_t *words);
    void alpha(const uint32_t *words);
    void blend(const uint32_t *words);
    void lineWidth(const uint32_t *words);
    void scissor(const uint32_t *words);
    void save(const uint32_t *words);
    void restore(const uint32_t *words);
    void item(const uint32_t *words);
    void disc(const uint32_t *words);
    void line(const uint32_t *words);
    void fillRect(const uint32_t *words);
    void strokeRect(const uint32_t *words);
    void vertex(const uint32_t *words);
    void polyline(const uint32_t *words);
    void polygon(const uint32_t *words);
    void arc(const uint32_t *words);
    void gradient(const uint32_t *words);
    void text(const uint32_t *words);
    void chars(const uint32_t *words);
    void bitmapSource(const uint32_t *words);
    void bitmapLayout(const uint32_t *words);
    void bitmapPalette(const uint32_t *words);
    void bitmapTransform(const uint32_t *words);
    void bitmapMode(const uint32_t *words);
    void bitmap(const uint32_t *words);

    CRasterizer &m_rasterizer;
    const CRamG &m_memory;
    CBitmapCache &m_bitmaps;
    std::vector<SPoint> &m_vertices;
    const std::atomic<bool> *const m_cancelled;
    CErrorLog m_errors;
    bool m_ended = false;
    bool m_pathTooLong = false;
    CDrawingBudget m_budget;
    bool m_isExcessTold = false;
    SState m_state;
    std::array<SState, MaxSavedStates> m_saved;
    size_t m_savedCount = 0;
    SPen m_pen;
    SBitmapKey m_bitmapKey;
    SBitmapPlacement m_placement{};
    std::shared_ptr<const SBitmapImage> m_image; ///< of m_bitmapKey; null when not looked up yet
};

} // namespace kivemu
