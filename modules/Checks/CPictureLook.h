#pragma once

#include "TextContrast.h"

#include <QHash>
#include <QPair>
#include <QSet>
#include <QVector>

#include <memory>

class CListDrawer;

/// What the picture of a screen tells of its items, by their tags in the display list: of those
/// that have one of their own.
struct SPictureState
{
    bool isKnown = false;                   ///< false when the emulator does not tell its memory
    QHash<quint32, QRect> ink;              ///< of all texts of an item, pixels
    QSet<quint32> cut;                      ///< that have no room for one of their texts
    QHash<quint32, STextContrast> contrast; ///< of the text that is read worst, when that is badly
    QVector<quint32> hidden;                ///< by what lies in front of them; front-most first
    QSet<quint32> dimmed; ///< by an item that covers the page below others, as behind a question
};

/// Looks at pictures. Knows no model, so any thread may, one at a time: it may take a while. What
/// it decoded is kept for the next picture.
class CPictureLook
{
public:
    CPictureLook();
    ~CPictureLook();

    SPictureState look(const SScreenExport &render);

private:
    std::unique_ptr<CListDrawer> m_drawer;
};
