#include "CListProbe.h"

#include "CListDrawer.h"
#include "CTextRuns.h"
#include "displaylist/CommandTable.h"
#include "displaylist/DisplayListText.h"

#include <utility>

using namespace kivemu;

namespace {

bool isDrawing(EOpcode opcode)
{
    switch (opcode) {
    case EOpcode::Disc:
    case EOpcode::Line:
    case EOpcode::FillRect:
    case EOpcode::StrokeRect:
    case EOpcode::Vertex:
    case EOpcode::Polyline:
    case EOpcode::Polygon:
    case EOpcode::Arc:
    case EOpcode::Gradient:
    case EOpcode::Chars:
    case EOpcode::Glyph:
    case EOpcode::Bitmap:
        return true;
    default:
        return false;
    }
}

} // namespace

CListProbe::CListProbe(const SScreenExport &screen, CListDrawer &drawer)
    : m_screen(screen), m_drawer(drawer)
{
    m_words = fromBytes(reinterpret_cast<const uint8_t *>(screen.bytes.constData()),
                        static_cast<size_t>(screen.bytes.size()));
    read();
}

void CListProbe::read()
{
    CTextRuns texts(m_screen.memory.bytes);
    quint32 tag = 0;
    walkCommands(m_words.data(), m_words.size(), [&](const SCommand &command, size_t header) {
        if (command.opcode == EOpcode::Item)
            tag = m_words[header + 1];
        texts.take(command.opcode, m_words.data() + header, tag);
        if (!isDrawing(command.opcode))
            return;
        const bool isText = command.opcode == EOpcode::Chars || command.opcode == EOpcode::Glyph;
        m_pieces.append({header, 1 + command.operandWords(), tag, isText});
        m_drawn.insert(tag);
    });
    m_texts = texts.runs();
}

QImage CListProbe::withoutItem(quint32 tag)
{
    return drawWithout([tag](const SPiece &piece) { return piece.tag == tag; });
}

QImage CListProbe::withoutItems(const QSet<quint32> &tags)
{
    return drawWithout([&tags](const SPiece &piece) { return tags.contains(piece.tag); });
}

QImage CListProbe::withoutTexts()
{
    return drawWithout([](const SPiece &piece) { return piece.isText; });
}

template<typename Test>
QImage CListProbe::drawWithout(Test isLeftOut)
{
    if (!canDraw())
        return {};
    if (!std::exchange(m_isSet, true))
        m_drawer.setScreen(m_screen.memory.bytes, m_screen.frame.size());
    std::vector<uint32_t> words;
    words.reserve(m_words.size());
    size_t next = 0;
    for (const SPiece &piece : qAsConst(m_pieces)) {
        if (!isLeftOut(piece))
            continue;
        words.insert(words.end(), m_words.begin() + static_cast<std::ptrdiff_t>(next),
                     m_words.begin() + static_cast<std::ptrdiff_t>(piece.first));
        next = piece.first + piece.count;
    }
    words.insert(words.end(), m_words.begin() + static_cast<std::ptrdiff_t>(next), m_words.end());
    return m_drawer.draw(words);
}
