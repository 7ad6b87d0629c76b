#pragma once

#include "CListProbe.h"

namespace kivemu {
enum class EOpcode : uint8_t;
}

/// Follows the commands of a display list as far as texts depend on them, and gathers the texts.
class CTextRuns
{
public:
    /// `memory`: RAM_G, where the fonts of the project lie. It must live longer.
    explicit CTextRuns(const QByteArray &memory) : m_memory(memory) {}

    /// The list's next command, from its header on; `tag`: of the item that it draws.
    void take(kivemu::EOpcode opcode, const uint32_t *words, quint32 tag);
    /// Those with ink.
    QVector<CListProbe::STextRun> runs() const;

private:
    void takeChars(uint32_t operand);
    void takeGlyph(uint32_t operand);
    void addInk(int left, int top, int width, int height, int advance16);

    const QByteArray &m_memory;
    QVector<CListProbe::STextRun> m_runs;
    QVector<uint32_t> m_savedColours;
    uint32_t m_colour = 0xffffff;
    uint32_t m_blocks[16] = {}; ///< addresses of the font blocks; 0: not bound
    int m_font = 0;
    int m_x16 = 0; ///< the pen
    int m_y16 = 0;
};
