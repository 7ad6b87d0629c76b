#include "CGuideLines.h"

#include "CanvasRoles.h"

#include <QGraphicsLineItem>

#include <cmath>

CGuideLines::CGuideLines(QGraphicsItem *view)
{
    for (QGraphicsLineItem *&line : m_lines) {
        line = new QGraphicsLineItem(view);
        line->setPen(CanvasColour::outlinePen(CanvasColour::Guide));
        line->setAcceptedMouseButtons(Qt::NoButton);
        line->setData(CanvasRole::RoleKey, CanvasRole::PartOfParent);
        line->hide();
    }
}

void CGuideLines::show(const QRectF &frame, const QRectF &reach, std::optional<double> across,
                       std::optional<double> down)
{
    constexpr double Same = 1e-6; // places are sums that were added up in another order
    size_t next = 0;
    const auto place = [this, &next](const QLineF &line, bool isShown) {
        m_lines[next]->setLine(line);
        m_lines[next]->setVisible(isShown);
        ++next;
    };
    for (const double x : {frame.left(), frame.center().x(), frame.right()}) {
        const bool isShown = across && std::abs(x - *across) < Same;
        place({x, reach.top(), x, frame.top()}, isShown);
        place({x, frame.bottom(), x, reach.bottom()}, isShown);
    }
    for (const double y : {frame.top(), frame.center().y(), frame.bottom()}) {
        const bool isShown = down && std::abs(y - *down) < Same;
        place({reach.left(), y, frame.left(), y}, isShown);
        place({frame.right(), y, reach.right(), y}, isShown);
    }
}

void CGuideLines::hide()
{
    for (QGraphicsLineItem *line : m_lines)
        line->hide();
}
