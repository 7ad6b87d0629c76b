#include "CGuideLines.h"

#include "CanvasRoles.h"

#include <QGraphicsLineItem>

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

void CGuideLines::show(const QRectF &frame, const QRectF &reach)
{
    size_t next = 0;
    const auto place = [this, &next](double x1, double y1, double x2, double y2) {
        m_lines[next]->setLine(x1, y1, x2, y2);
        m_lines[next]->show();
        ++next;
    };
    for (const double x : {frame.left(), frame.center().x(), frame.right()}) {
        place(x, reach.top(), x, frame.top());
        place(x, frame.bottom(), x, reach.bottom());
    }
    for (const double y : {frame.top(), frame.center().y(), frame.bottom()}) {
        place(reach.left(), y, frame.left(), y);
        place(frame.right(), y, reach.right(), y);
    }
}

void CGuideLines::hide()
{
    for (QGraphicsLineItem *line : m_lines)
        line->hide();
}
