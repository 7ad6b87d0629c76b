#pragma once

#include "CBitmapCache.h"
#include "CBitmapCommands.h"
#include "CDrawingBudget.h"
#include "CErrorLog.h"
#include "CGlyphCache.h"
#include "CTextCommands.h"
#include "ChipState.h"
#include "displaylist/CommandTable.h"
#include "raster/RasterTypes.h"

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace kivemu {

class CRamG;
class CRasterizer;

/// One execution of a display list: the chip's state, and one function for each command that draws
/// or changes it; texts and bitmaps have classes of their own.
class CCommandRunner
{
public:
    /// What is worth keeping from one execution to the next.
    struct SCaches
    {
        CBitmapCache bitmaps;
        CGlyphCache glyphs;
        std::vector<SPoint> vertices; ///< working memory, which need not grow anew in every frame
    };
    /// All must outlive the runner. `cancelled` may be null.
    CCommandRunner(CRasterizer &rasterizer, const CRamG &memory, SCaches &caches,
                   const std::atomic<bool> *cancelled);

    /// Draws onto a black frame until the end command; gives what is wrong in the list.
    std::vector<SExecutionError> run(const uint32_t *words, size_t count);

private:
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
    template<void (CTextCommands::*Member)(const uint32_t *words)>
    static void callTexts(CCommandRunner &runner, const uint32_t *words);
    template<void (CBitmapCommands::*Member)(const uint32_t *words)>
    static void callBitmaps(CCommandRunner &runner, const uint32_t *words);

    size_t step(const uint32_t *words, size_t count);
    void fail(EOpcode opcode, const std::string &what);
    void dropVertices();
    bool isLeftOut(EOpcode opcode);

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

    CRasterizer &m_rasterizer;
    std::vector<SPoint> &m_vertices;
    const std::atomic<bool> *const m_cancelled;
    CErrorLog m_errors;
    bool m_ended = false;
    bool m_pathTooLong = false;
    CDrawingBudget m_budget;
    bool m_isExcessTold = false;
    SChipState m_state;
    std::array<SChipState, MaxSavedStates> m_saved;
    size_t m_savedCount = 0;
    CTextCommands m_texts;
    CBitmapCommands m_bitmaps;
};

} // namespace kivemu
