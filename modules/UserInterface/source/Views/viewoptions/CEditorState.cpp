#include "CEditorState.h"

#include <algorithm>

CEditorState *CEditorState::instance()
{
    static CEditorState state;
    return &state;
}

void CEditorState::setSnapToGrid(bool on)
{
    if (m_snapToGrid == on)
        return;
    m_snapToGrid = on;
    Q_EMIT snapToGridChanged(on);
}

void CEditorState::setSnapping(bool on, SnapKinds kinds)
{
    if (m_isSnapping == on && m_snapKinds == kinds)
        return;
    m_isSnapping = on;
    m_snapKinds = kinds;
    Q_EMIT snappingChanged();
}

void CEditorState::setGrid(bool on, int spacing, QColor colour, Qt::PenStyle style)
{
    spacing = std::max(1, spacing);
    if (m_gridShown == on && m_gridSpacing == spacing && m_gridColour == colour &&
        m_gridStyle == style)
        return;
    m_gridShown = on;
    m_gridSpacing = spacing;
    m_gridColour = colour;
    m_gridStyle = style;
    Q_EMIT gridChanged(on, spacing, colour, style);
}

void CEditorState::setGridFaint(bool faint)
{
    if (m_gridFaint == faint)
        return;
    m_gridFaint = faint;
    Q_EMIT gridFaintChanged(faint);
}

void CEditorState::setGuidesShown(bool shown)
{
    if (m_guidesShown == shown)
        return;
    m_guidesShown = shown;
    Q_EMIT guidesShownChanged(shown);
}

void CEditorState::setZoom(int percent, int type)
{
    if (m_zoomPercent == percent && m_zoomType == type)
        return;
    m_zoomPercent = percent;
    m_zoomType = type;
    Q_EMIT zoomChanged(percent, type);
}

void CEditorState::setNudgeSteps(int step, int fine)
{
    m_nudgeStep = std::max(1, step);
    m_fineNudgeStep = std::max(1, fine);
}
