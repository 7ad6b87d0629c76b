#include "CSnapping.h"

#include "CEditorState.h"
#include "CSnapMarks.h"
#include "SnapReferences.h"

#include <QGraphicsScene>
#include <QGraphicsView>

namespace {
constexpr double Reach =
    5; ///< screen pixels from which something snaps: little more than a hand misses by
}

CSnapping::CSnapping(QGraphicsScene &scene, const CScreenModel &screen)
    : m_scene(scene), m_screen(screen), m_marks(new CSnapMarks)
{
    scene.addItem(m_marks);
}

void CSnapping::begin(const QVector<CItemModel *> &moving, const QVector<QRectF> &own)
{
    const CEditorState *state = CEditorState::instance();
    SnapKinds kinds = state->activeSnapKinds();
    if (!state->areGuidesShown()) // nothing to be seen would hold the item
        kinds.setFlag(ESnapKind::Guides, false);
    if (!kinds)
        return end();
    SSnapReferences references = SnapReferences::of(m_screen, moving);
    references.items += own;
    m_rule = std::make_unique<CSnapRule>(references, kinds);
}

double CSnapping::zoom() const
{
    const QGraphicsView *view = m_scene.views().value(0);
    return view ? view->transform().m11() : 1.0;
}

QPointF CSnapping::snapped(const CSnapRule::OutlineAt &outlineAt, const QPointF &offset,
                           Qt::KeyboardModifiers modifiers)
{
    if (!m_rule)
        return offset;
    SSnapped result{offset, {}, {}, {}};
    if (!modifiers.testFlag(Qt::ControlModifier))
        result = m_rule->snap(outlineAt, offset, Reach / zoom());
    m_marks->show(result);
    return result.offset;
}

void CSnapping::end()
{
    m_rule.reset();
    m_marks->clear();
}
