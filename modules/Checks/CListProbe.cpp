#include "CListProbe.h"

#include "CTextRuns.h"
#include "displaylist/CommandTable.h"
#include "displaylist/DisplayListText.h"
#include "executor/CExecutor.h"
#include "executor/CRamG.h"
#include "raster/CSurface.h"

#include <algorithm>
#include <cstring>

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

CListProbe::CListProbe(const SScreenExport &screen) : m_screen(screen)
{
    m_words = fromBytes(reinterpret_cast<const uint8_t *>(screen.bytes.constData()),
                        static_cast<size_t>(screen.bytes.size()));
    read();
}

CListProbe::~CListProbe() = default;

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

QImage CListProbe::withoutTexts()
{
    return drawWithout([](const SPiece &piece) { return piece.isText; });
}

template<typename Test>
QImage CListProbe::drawWithout(Test isLeftOut)
{
    if (!canDraw())
        return {};
    if (!m_memory) {
        const QByteArray &bytes = m_screen.memory.bytes;
        m_memory = std::make_unique<CRamG>(static_cast<size_t>(bytes.size()));
        m_memory->append(reinterpret_cast<const uint8_t *>(bytes.constData()),
                         static_cast<size_t>(bytes.size()));
        m_executor = std::make_unique<CExecutor>();
    }
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

    QImage frame(m_screen.frame.size(), QImage::Format_RGB32);
    CSurface surface(frame.width(), frame.height());
    m_executor->execute(words.data(), words.size(), *m_memory, surface);
    const size_t rowBytes = static_cast<size_t>(frame.width()) * sizeof(QRgb);
    for (int y = 0; y < frame.height(); ++y)
        std::memcpy(frame.scanLine(y), surface.row(y), rowBytes);
    return frame;
}
