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

/// What is not seen by itself is hidden by nothing.
bool isSeenWithout(CListProbe &probe, quint32 tag, QSet<quint32> inFront)
{
    const QImage with = probe.withoutItems(inFront).copy();
    return probe.withoutItems(inFront << tag) != with;
}

void lookForHidden(SPictureState &state, CListProbe &probe, const QImage &frame,
                   const QList<SExportedItem> &items, const QSet<quint32> &tags)
{
    const QRectF screen(frame.rect());
    QVector<QRectF> inFront; // items come front-most first
    QSet<quint32> tagsInFront;
    for (const SExportedItem &each : items) {
        const QRectF box = each.bounds.intersected(screen);
        if (!box.isEmpty() && tags.contains(each.tag) && probe.draws(each.tag) &&
            mayBeCovered(box, inFront) && probe.withoutItem(each.tag) == frame &&
            isSeenWithout(probe, each.tag, tagsInFront))
            state.hidden.append(each.tag);
        if (each.turn == 0)
            inFront.append(each.bounds);
        tagsInFront.insert(each.tag);
    }
}

/// Whether more of an area looks different than what a line across it makes. Where a page is as
/// dark as what dims it, only what stands there is changed.
bool isChanged(const QImage &one, const QImage &other, const QRect &area)
{
    qint64 changed = 0;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        const auto *a = reinterpret_cast<const QRgb *>(one.constScanLine(y));
        const auto *b = reinterpret_cast<const QRgb *>(other.constScanLine(y));
        for (int x = area.left(); x <= area.right(); ++x)
            changed += a[x] != b[x];
    }
    return 20 * changed > qint64{area.width()} * area.height();
}

/// A question that is asked before a page dims all of it: what lies behind is not at work.
void lookForDimmed(SPictureState &state, CListProbe &probe, const QImage &frame,
                   const QList<SExportedItem> &items, const QSet<quint32> &tags)
{
    QImage without; // the item that dims
    bool hasFront = false;
    for (const SExportedItem &each : items) {
        if (!probe.draws(each.tag) || !tags.contains(each.tag))
            continue;
        const QRect area = each.bounds.toAlignedRect().intersected(frame.rect());
        if (!without.isNull() && !area.isEmpty() && isChanged(frame, without, area))
            state.dimmed.insert(each.tag);
        else if (without.isNull() && hasFront && each.turn == 0 &&
                 each.bounds.contains(QRectF(frame.rect())))
            without = probe.withoutItem(each.tag).copy();
        hasFront = true;
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
    lookForDimmed(state, probe, frame, render.items, tags);
    return state;
}
