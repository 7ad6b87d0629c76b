#pragma once

#include "SScreenExport.h"

#include <QImage>
#include <QRect>
#include <QSet>
#include <QVector>

#include <cstdint>
#include <vector>

class CListDrawer;

/// Looks into a screen's display list, and draws it with a part left out, to see what that part
/// does to the picture. What is left out moves nothing else: only drawing commands are, none that
/// change the state.
class CListProbe
{
public:
    /// The glyphs of one line of text as the list draws them.
    struct STextRun
    {
        quint32 tag = 0;    ///< of its item; 0: the list does not name it
        QRect ink;          ///< pixels that the glyphs may cover; may reach out of the frame
        QRgb colour = 0;    ///< opaque
        int lineHeight = 0; ///< of the font, pixels; of an own font that of its highest glyph
    };

    /// `screen` with frame and memory. Both must live longer.
    CListProbe(const SScreenExport &screen, CListDrawer &drawer);

    /// False when the emulator does not tell its memory: then nothing can be drawn again.
    bool canDraw() const { return m_screen.memory.isKnown && !m_screen.frame.isNull(); }
    const QVector<STextRun> &texts() const { return m_texts; }
    /// Whether the list draws something for an item.
    bool draws(quint32 tag) const { return m_drawn.contains(tag); }
    // Format_RGB32; valid until the next one. Null when nothing can be drawn.
    QImage withoutItem(quint32 tag);
    QImage withoutItems(const QSet<quint32> &tags);
    QImage withoutTexts();

private:
    struct SPiece
    {
        size_t first;
        size_t count;
        quint32 tag;
        bool isText;
    };

    void read();
    template<typename Test>
    QImage drawWithout(Test isLeftOut);

    const SScreenExport &m_screen;
    CListDrawer &m_drawer;
    bool m_isSet = false; ///< the drawer has this screen's memory
    std::vector<uint32_t> m_words;
    QVector<SPiece> m_pieces; ///< the drawing commands, in their order
    QSet<quint32> m_drawn;
    QVector<STextRun> m_texts;
};
