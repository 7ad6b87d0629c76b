#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <cstddef>
#include <cstdint>
#include <set>
#include <vector>

/// Puts the font blocks of a project's screens together, so that screens with texts in the same
/// font share one block and no change of the screen loads it anew.
/// A font is merged when each screen that shows it has room for all of its glyphs; otherwise its
/// blocks stay as they are. A pure function: equal input gives the same blocks.
class CFontMerge
{
public:
    /// A screen draws from a block, as a block of `font`: blocks of equal texts belong together.
    struct SUse
    {
        size_t screen;
        size_t block;
        QString font;
    };
    /// `blocks`: all unlike, the one that was met first, first. `otherBytes`: for each screen what
    /// it has besides them in the `capacity` bytes of its memory.
    CFontMerge(const QList<QByteArray> &blocks, const std::vector<SUse> &uses,
               const std::vector<uint32_t> &otherBytes, uint32_t capacity);

    /// The blocks that there are now. One of several blocks begins with the glyphs of the first of
    /// them, so that these keep their numbers; each other glyph is in it once.
    const QList<QByteArray> &blocks() const { return m_result; }
    /// Which of blocks() has the glyphs of a block that was given.
    size_t blockOf(size_t block) const { return m_parts[block].merged; }
    /// The number there of a glyph of a block that was given.
    uint16_t numberOf(size_t block, uint16_t number) const;

private:
    struct SPart
    {
        size_t merged = 0;
        std::vector<uint16_t> numbers; ///< empty: as they were
    };
    struct SScreen
    {
        std::set<size_t> blocks;
        uint64_t bytes; ///< with the other assets
    };
    using Blocks = std::vector<size_t>; ///< ascending
    static std::vector<Blocks> fontsOf(size_t blockCount, const std::vector<SUse> &uses);
    bool mergeFont(const QList<QByteArray> &blocks, const Blocks &font,
                   std::vector<SScreen> &screens, uint32_t capacity);

    std::vector<SPart> m_parts;
    QList<QByteArray> m_result;
};
