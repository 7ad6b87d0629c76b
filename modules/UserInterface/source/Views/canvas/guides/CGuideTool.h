#pragma once

#include "SSnapped.h"
#include "ScreenGuides.h"

#include <QObject>
#include <QPoint>

#include <functional>
#include <optional>

class CGuideMenu;
class CScreenModel;
class QContextMenuEvent;
class QGraphicsView;
class QMouseEvent;
class QPainter;

/// Takes hold of the guides of a screen in one view, and paints them. The view asks it before its
/// items; what it answers with true was for a guide. Nothing changes in the model until a release,
/// which is one step.
class CGuideTool final : public QObject
{
    Q_OBJECT

public:
    /// Whether the items at a place of the view keep a press there, given the direction of the
    /// guide that lies nearest and its distance in pixels.
    using ItemsKeep = std::function<bool(const QPoint &, Qt::Orientation, double)>;

    /// A child of the view.
    CGuideTool(CScreenModel *screen, QGraphicsView *view, ItemsKeep itemsKeep);

    /// From a press to its release, also when it was cancelled.
    bool isHeld() const { return m_drag.has_value(); }
    bool hasChosen() const { return m_chosen >= 0; }
    void detach(); ///< the screen is about to go

    bool press(const QMouseEvent &event);
    bool move(const QMouseEvent &event);
    bool release(const QMouseEvent &event);
    bool doubleClick(const QMouseEvent &event);
    bool showMenu(const QContextMenuEvent &event);
    void leave();
    void removeChosen();
    void chooseNone();

    // A guide that comes from a ruler along this side. Places are the view's, also outside of it.
    void beginNew(Qt::Orientation ruler);
    void dragTo(const QPoint &place, Qt::KeyboardModifiers modifiers);
    void drop();
    void cancel(); ///< what is held stays as it was; the release is still awaited

    void paint(QPainter &painter) const;

Q_SIGNALS:
    void hovered(); ///< the items are not under the pointer any more
    void chosen();  ///< a guide, so that nothing else is
    void reported(const QString &readout);
    void ended();

private:
    struct SDrag
    {
        int index = -1; ///< negative: a new one
        SScreenGuide guide;
        SSnapReferences references; ///< what it can lie on
        QPoint press;
        bool isMoved = false;
        bool isOver = false; ///< the ruler, where it goes
        bool isCancelled = false;
    };

    void hold(int index, const SScreenGuide &guide);
    int positionAt(const QPoint &place, Qt::KeyboardModifiers modifiers) const;
    int guideAt(const QPoint &place, bool isWithLocked = false) const;
    void setHover(int index);
    void choose(int index);
    void updateLine(const SScreenGuide &guide) const;
    void updateAll() const;
    QString readout() const;
    void onGuidesChanged(CScreenModel *screen);

    CScreenModel *m_screen; ///< not owned; null once detached
    QGraphicsView *const m_view;
    CGuideMenu *const m_menu; ///< the view's
    const ItemsKeep m_itemsKeep;
    std::optional<SDrag> m_drag;
    int m_hover = -1;
    int m_chosen = -1; ///< what Delete is for
};
