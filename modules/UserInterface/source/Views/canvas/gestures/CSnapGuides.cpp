#include "CSnapGuides.h"

#include "CItemModel.h"
#include "CSnapCross.h"
#include "SnapRule.h"

#include <QGraphicsScene>
#include <QGraphicsView>
#include <QSet>

namespace {
bool isUnder(const CItemModel *item, const QSet<CItemModel *> &moving)
{
    for (; item; item = item->parentItem()) {
        if (moving.contains(const_cast<CItemModel *>(item)))
            return true;
    }
    return false;
}

QRectF visibleRect(const QGraphicsScene &scene)
{
    if (scene.views().isEmpty())
        return scene.sceneRect();
    const QGraphicsView *view = scene.views().constFirst();
    return view->mapToScene(view->viewport()->rect()).boundingRect();
}
} // namespace

CSnapGuides::CSnapGuides(QGraphicsScene &scene) : m_scene(scene), m_cross(new CSnapCross)
{
    scene.addItem(m_cross);
}

QPointF CSnapGuides::place(const QPointF &proposed, const QVector<CItemView *> &views,
                           const QVector<CItemModel *> &moving, int spacing)
{
    QVector<SnapRule::Candidate> across;
    QVector<SnapRule::Candidate> down;
    const QSet<CItemModel *> away(moving.begin(), moving.end());
    for (CItemView *view : views) {
        if (view->isSelected() || view->item()->isUnderHidden() || isUnder(view->item(), away))
            continue;
        const QRectF rect = view->sceneRect();
        across << SnapRule::Candidate{rect.left(), view} << SnapRule::Candidate{rect.right(), view}
               << SnapRule::Candidate{(rect.left() + rect.right()) / 2, view};
        down << SnapRule::Candidate{rect.top(), view} << SnapRule::Candidate{rect.bottom(), view}
             << SnapRule::Candidate{(rect.top() + rect.bottom()) / 2, view};
    }
    SnapRule::appendGridLines(across, proposed.x(), spacing);
    SnapRule::appendGridLines(down, proposed.y(), spacing);
    const SnapRule::Candidate x = SnapRule::nearest(across, proposed.x());
    const SnapRule::Candidate y = SnapRule::nearest(down, proposed.y());

    hide();
    // Only what has decided is shown: a grid line may be nearer in the other direction.
    for (CItemView *view : {x.view, y.view}) {
        if (!view || m_guided.contains(view))
            continue;
        view->showGuides(visibleRect(m_scene),
                         view == x.view ? std::optional(x.position) : std::nullopt,
                         view == y.view ? std::optional(y.position) : std::nullopt);
        m_guided.append(view);
    }
    m_cross->setPos(x.position, y.position);
    m_cross->show();
    return {x.position, y.position};
}

void CSnapGuides::hide()
{
    for (const QPointer<CItemView> &view : qAsConst(m_guided)) {
        if (view)
            view->hideGuides();
    }
    m_guided.clear();
    m_cross->hide();
}

QGraphicsItem *CSnapGuides::cross() const
{
    return m_cross;
}
