#pragma once

#include "SnapKinds.h"

#include <QColor>
#include <QObject>

/// What holds for every screen that is edited: snapping, the grid, guides and the zoom. It alone
/// owns them: the controls, the menus, the settings and the wheel over a canvas set it, and its
/// signals are what scenes, views, menus and controls follow. Nothing is announced that was so
/// before.
/// Threads: the GUI thread only.
class CEditorState final : public QObject
{
    Q_OBJECT

public:
    /// The one state of the process.
    static CEditorState *instance();

    bool isSnapToGrid() const { return m_snapToGrid; }
    bool isSnapping() const { return m_isSnapping; } ///< to the kinds; to the grid is apart from it
    SnapKinds snapKinds() const { return m_snapKinds; } ///< also while there is no snapping
    SnapKinds activeSnapKinds() const { return m_isSnapping ? m_snapKinds : SnapKinds(); }
    bool isGridShown() const { return m_gridShown; }
    int gridSpacing() const { return m_gridSpacing; } ///< scene units, at least 1
    QColor gridColour() const { return m_gridColour; }
    Qt::PenStyle gridStyle() const { return m_gridStyle; }
    bool isGridFaint() const { return m_gridFaint; } ///< it then hardly covers the design
    bool areGuidesShown() const { return m_guidesShown; }
    int nudgeStep() const { return m_nudgeStep; }         ///< of the arrow keys, scene units
    int fineNudgeStep() const { return m_fineNudgeStep; } ///< with Shift
    int zoomPercent() const { return m_zoomPercent; }
    int zoomType() const { return m_zoomType; } ///< as CZoomComboWidget::Type

public Q_SLOTS:
    void setSnapToGrid(bool on);
    void setSnapping(bool on, SnapKinds kinds);
    void setGrid(bool on, int spacing, QColor colour, Qt::PenStyle style);
    void setGridFaint(bool faint);
    void setGuidesShown(bool shown);
    void setZoom(int percent, int type);
    void setNudgeSteps(int step, int fine); ///< each at least 1

Q_SIGNALS:
    void snapToGridChanged(bool on);
    void snappingChanged();
    void gridChanged(bool on, int spacing, QColor colour, Qt::PenStyle style);
    void gridFaintChanged(bool faint);
    void guidesShownChanged(bool shown);
    void zoomChanged(int percent, int type);

private:
    CEditorState() = default;

    bool m_snapToGrid = true;
    bool m_isSnapping = false; // until the settings say
    SnapKinds m_snapKinds =
        ESnapKind::Items | ESnapKind::Page | ESnapKind::Guides | ESnapKind::Gaps;
    bool m_gridShown = true;
    int m_gridSpacing = 20;
    QColor m_gridColour = Qt::red;
    Qt::PenStyle m_gridStyle = Qt::SolidLine;
    bool m_gridFaint = false;
    bool m_guidesShown = true;
    int m_nudgeStep = 20;
    int m_fineNudgeStep = 1;
    int m_zoomPercent = 100;
    int m_zoomType = 0;
};
