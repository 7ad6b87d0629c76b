#include "CPictureLook.h"

#include "CListDrawer.h"

#include <algorithm>

namespace {

/// Those that one item has, and no other.
QSet<quint32> uniqueTags(const QList<SExportedItem> &items)
{
    QSet<quint32> tags;
    QSet<quint32> several{0};
    for (const SExportedItem &item : items) {
        if (tags.contains(item.tag))
            several.insert(item.tag);
        tags.insert(item.tag);
    }
    return tags.subtract(several);
}

/// Whether others in front may cover all of a box: corners, middles of the sides and centre. Only a
/// reason to look closer.
bool mayBeCovered(const QRectF &box, const QVector<QRectF> &inFront)
{
    for (const double x : {box.left() + 1, box.center().x(), box.right() - 1})
        for (const double y : {box.top() + 1, box.center().y(), box.bottom() - 1}) {
            const auto covers = [&](const QRectF &other) { return other.contains(x, y); };
            if (std::none_of(inFront.begin(), inFront.end(), covers))
                return false;
        }
    return !inFront.isEmpty();
}

void lookAtTexts(SPictureState &state, CListProbe &probe, const QImage &frame,
                 const QSet<quint32> &tags)
{
    QImage without;
    for (const CListProbe::STextRun &text : probe.texts()) {
        if (!tags.contains(text.tag))
            continue;
        state.ink[text.tag] |= text.ink;
        if (without.isNull())
            without = probe.withoutTexts();
        const STextContrast contrast = textContrast(text, frame, without);
        if (contrast.ratio == 0)
            continue;
        const auto known = state.contrast.constFind(text.tag);
        if (known == state.contrast.constEnd() || contrast.ratio < known->ratio)
            state.contrast.insert(text.tag, contrast);
    }
}

void lookForHidden(SPictureState &state, CListProbe &probe, const QImage &frame,
                   const QList<SExportedItem> &items, const QSet<quint32> &tags)
{
    const QRectF screen(frame.rect());
    QVector<QRectF> inFront; // items come front-most first
    for (const SExportedItem &each : items) {
        const QRectF box = each.bounds.intersected(screen);
        if (!box.isEmpty() && tags.contains(each.tag) && probe.draws(each.tag) &&
            mayBeCovered(box, inFront) && probe.withoutItem(each.tag) == frame)
            state.hidden.append(each.tag);
        if (each.turn == 0)
            inFront.append(each.bounds);
    }
}

} // namespace

CPictureLook::CPictureLook() : m_drawer(std::make_unique<CListDrawer>())
{
}

CPictureLook::~CPictureLook() = default;

SPictureState CPictureLook::look(const SScreenExport &render)
{
    SPictureState state;
    CListProbe probe(render, *m_drawer);
    state.isKnown = probe.canDraw();
    if (!state.isKnown)
        return state;
    const QSet<quint32> tags = uniqueTags(render.items);
    for (const quint32 tag : render.cutTexts)
        if (tags.contains(tag))
            state.cut.insert(tag);
    const QImage frame = render.frame.convertToFormat(QImage::Format_RGB32);
    lookAtTexts(state, probe, frame, tags);
    lookForHidden(state, probe, frame, render.items, tags);
    return state;
}
