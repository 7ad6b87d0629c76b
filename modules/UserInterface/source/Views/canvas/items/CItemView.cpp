#include "CItemView.h"

#include "CGuideLines.h"
#include "CHandleMarks.h"
#include "CItemModel.h"
#include "CLockMark.h"
#include "CResizeHandle.h"
#include "CRotateHandle.h"
#include "CRotationOutline.h"
#include "CanvasRoles.h"
#include "FramePaint.h"
#include "HitArea.h"
#include "ICanvas.h"
#include "ItemGeometry.h"
#include "PropertyKey.h"

#include <QGraphicsView>
#include <QPainter>

#include <algorithm>

namespace {
constexpr double KeyFrame = 3; ///< logical pixels

bool isSizeKey(const QString &key)
{
    static const QStringList keys = {
        PropertyKey::Width,     PropertyKey::Height, PropertyKey::Radius,
        PropertyKey::PointSize, PropertyKey::X2,     PropertyKey::Y2,
        PropertyKey::Angle,     PropertyKey::Font,   PropertyKey::PointList};
    return keys.contains(key);
}
} // namespace

CItemView::CItemView(CItemModel *item, const ICanvas &canvas) : m_item(item), m_canvas(canvas)
{
    setData(CanvasRole::RoleKey, CanvasRole::ItemView);
    setData(CanvasRole::HighlightKey, 0);
    m_frame = ItemGeometry::ownFrameOf(*item);
    updatePosition();
    updateFlags();
}

CItemView::~CItemView() = default;

QTransform CItemView::turn() const
{
    const QPointF centre = m_frame.center();
    return QTransform::fromTranslate(centre.x(), centre.y())
        .rotate(shownAngle())
        .translate(-centre.x(), -centre.y());
}

bool CItemView::isDrawnByLines() const
{
    return m_item->geometryMode() == GeometryMode::TwoCorners || m_item->hasPointList();
}

double CItemView::lineWidth() const
{
    return std::max(HitArea::LeastWidth,
                    m_item->propertyValue(QStringLiteral("thickness")).toDouble());
}

QRectF CItemView::boundingRect() const
{
    QRectF rect = HitArea::of(m_frame); // the outline of a turned item is drawn unturned as well
    if (isDrawnByLines()) {             // their ends stick out, slanted ones by their corners
        const double end = lineWidth() * 0.75;
        rect.adjust(-end, -end, end, end);
    }
    return shownAngle() == 0 ? rect : rect.united(turn().mapRect(rect));
}

QVector<QPainterPath> CItemView::hitParts() const
{
    QPainterPath path;
    if (m_item->geometryMode() != GeometryMode::TwoCorners) {
        path.addRect(HitArea::of(m_frame));
        return {path};
    }
    path.moveTo(m_frame.topLeft());
    path.lineTo(m_frame.bottomRight());
    return {alongPath(path)};
}

/// Where the item is seen; what is hidden is nowhere.
QVector<QPainterPath> CItemView::turnedParts() const
{
    if (m_item->isUnderHidden())
        return {};
    QVector<QPainterPath> parts = hitParts();
    if (shownAngle() == 0 || m_item->geometryMode() == GeometryMode::TwoCorners)
        return parts;
    for (QPainterPath &part : parts)
        part = turn().map(part);
    return parts;
}

QPainterPath CItemView::shape() const
{
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    for (const QPainterPath &part : turnedParts())
        path.addPath(part);
    return path;
}

/// Part by part: in one path, parts that run in opposite directions would leave a hole where they
/// overlap.
bool CItemView::contains(const QPointF &point) const
{
    const QVector<QPainterPath> parts = turnedParts();
    return std::any_of(parts.begin(), parts.end(),
                       [&point](const QPainterPath &part) { return part.contains(point); });
}

bool CItemView::collidesWithPath(const QPainterPath &path, Qt::ItemSelectionMode mode) const
{
    if (isLeftOutOfBand() || m_item->isUnderHidden())
        return false;
    if (mode != Qt::IntersectsItemShape)
        return QGraphicsObject::collidesWithPath(path, mode);
    const QVector<QPainterPath> parts = turnedParts();
    return std::any_of(parts.begin(), parts.end(),
                       [&path](const QPainterPath &part) { return part.intersects(path); });
}

bool CItemView::isLeftOutOfBand() const
{
    return m_canvas.isLeftOutOfBand(*m_item);
}

QPainterPath CItemView::alongPath(const QPainterPath &path) const
{
    return HitArea::along(path, lineWidth());
}

void CItemView::paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *)
{
    if (isSelected() || isHighlighted()) {
        painter->setOpacity(!isSelected() ? 0.4 : (m_hovered ? 1.0 : 0.8));
        FramePaint::drawRect(*painter, m_frame.normalized(), Qt::DashLine);
    }
    if (m_isKey && isSelected()) {
        painter->setOpacity(1.0);
        FramePaint::drawRect(*painter, m_frame.normalized(), Qt::SolidLine, KeyFrame);
    }
    if (m_canvas.isEntered(*m_item)) {
        painter->setOpacity(0.8);
        FramePaint::drawRect(*painter, m_frame.normalized(), Qt::DotLine);
    }
    if (m_isTarget && !isSelected()) {
        painter->setOpacity(1.0);
        paintTarget(*painter);
    }
}

void CItemView::paintTarget(QPainter &painter) const
{
    if (m_item->kind() == CItemModel::Kind::Group || (!isDrawnByLines() && shownAngle() == 0))
        FramePaint::drawRect(painter, m_frame.normalized(), Qt::SolidLine);
    else
        FramePaint::drawPath(painter, shape().simplified());
}

void CItemView::setKey(bool isKey)
{
    m_isKey = isKey;
    update();
}

void CItemView::setTarget(bool isTarget)
{
    m_isTarget = isTarget;
    update();
}

void CItemView::onPropertyChanged(const QString &key)
{
    if (key == PropertyKey::X || key == PropertyKey::Y) {
        updatePosition();
        updateBounds(); // two points: the other one stays
    } else if (isSizeKey(key)) {
        updateBounds();
    } else if (key == PropertyKey::Locked) {
        updateFlags();
    } else if (key == PropertyKey::Hidden) {
        update();
    }
}

void CItemView::updatePosition()
{
    setPos(m_item->x(), m_item->y());
}

void CItemView::updateBounds()
{
    const QRectF frame = ItemGeometry::ownFrameOf(*m_item);
    const double angle = m_item->hasAngle() ? m_item->angle() : 0.0;
    if (frame != m_frame || m_item->kind() == CItemModel::Kind::Group || // turned members
        angle != m_angle) {
        prepareGeometryChange(); // before the change: the scene still needs the old rectangle
        m_frame = frame;
        m_angle = angle;
    }
    updateHandles();
    update();
}

void CItemView::updateFlags()
{
    const bool selectable = m_canvas.isReachable(*m_item);
    setFlag(ItemIsSelectable, selectable);
    setFlag(ItemIsMovable, selectable && !m_item->isLocked());
    setAcceptHoverEvents(selectable);
    setAcceptedMouseButtons(selectable ? Qt::LeftButton : Qt::NoButton);
    updateBounds();
    showHandles(isSelected());
}

void CItemView::setHighlighted(bool highlighted)
{
    m_highlighted = highlighted;
    setData(CanvasRole::HighlightKey, highlighted ? 1 : 0);
}

void CItemView::showGuides(const QRectF &visible, std::optional<double> across,
                           std::optional<double> down)
{
    if (!m_guides)
        m_guides = std::make_unique<CGuideLines>(this);
    const QRectF frame = m_frame.normalized();
    if (across)
        *across -= x();
    if (down)
        *down -= y();
    m_guides->show(frame, visible.translated(-pos()).united(frame), across, down);
}

void CItemView::hideGuides()
{
    if (m_guides)
        m_guides->hide();
}

bool CItemView::isResizable() const
{
    return isSelected() && !m_item->isLocked();
}

bool CItemView::isRotatable() const
{
    return m_item->hasAngle() && m_canvas.isReachable(*m_item) && !m_item->isLocked();
}

void CItemView::makeHandles()
{
    for (int index = 0; index < HandleCount; ++index)
        m_handles[static_cast<size_t>(index)] = new CResizeHandle(index, this);
    if (m_item->hasAngle())
        m_rotateHandle = new CRotateHandle(this);
}

QVector<QGraphicsItem *> CItemView::handles()
{
    if (!areHandlesMade()) {
        makeHandles();
        updateHandles();
        showHandles(isSelected());
    }
    QVector<QGraphicsItem *> handles;
    for (QGraphicsItem *child : childItems()) {
        if (child->data(CanvasRole::RoleKey).toInt() == CanvasRole::Handle)
            handles.append(child);
    }
    return handles;
}

void CItemView::updateHandles()
{
    if (!isSelected())
        return;
    if (m_outline) {
        m_outline->setFrame(m_frame);
        m_outline->setRotation(m_angle);
    }
    if (m_lockMark)
        m_lockMark->setFrame(m_frame);
    if (m_marks)
        m_marks->follow();
    if (!areHandlesMade())
        return;
    const QTransform turned = turn();
    for (CResizeHandle *handle : m_handles)
        handle->place(m_frame, turned, m_angle);
    if (m_rotateHandle)
        m_rotateHandle->place(m_frame, turned, m_angle);
}

void CItemView::showHandles(bool visible)
{
    const bool isOwn = visible && m_canvas.hasOwnHandles(*this);
    if (isOwn && !m_marks)
        m_marks = new CHandleMarks(this);
    if (visible && !m_outline && m_item->hasAngle())
        m_outline = new CRotationOutline(this);
    if (visible && !m_lockMark && m_item->isLocked())
        m_lockMark = new CLockMark(this);
    updateHandles();
    if (m_marks)
        m_marks->setVisible(isOwn);
    if (m_outline)
        m_outline->setVisible(visible);
    if (m_lockMark)
        m_lockMark->setVisible(visible && m_item->isLocked());
    if (!areHandlesMade())
        return;
    for (CResizeHandle *handle : m_handles)
        handle->setVisible(isOwn && !m_item->isLocked() &&
                           CResizeHandle::isOfUseFor(handle->index(), *m_item));
    if (m_rotateHandle)
        m_rotateHandle->setVisible(isOwn && isRotatable());
}

double CItemView::zoom() const
{
    const QGraphicsView *view = scene() ? scene()->views().value(0) : nullptr;
    return view ? view->transform().m11() : 1.0;
}

double CItemView::standOff(double side)
{
    constexpr double Outside = 5; // of a frame that is too small to hold them, all of a handle
    const double half = std::abs(side) / 2;
    return half < HandleReach ? std::max(HandleReach - half, Outside) : 0;
}

QPointF CItemView::handleStandOff() const
{
    const double scale = zoom();
    return {standOff(m_frame.width() * scale), standOff(m_frame.height() * scale)};
}

QRectF CItemView::handlesRect() const
{
    QRectF rect = turn().mapRect(m_frame.normalized());
    const QVector<QPointF> all = points();
    return all.isEmpty() ? rect : rect.united(QPolygonF(all).boundingRect());
}

QGraphicsItem *CItemView::handleAt(const QPointF &scenePos, const QTransform &deviceTransform)
{
    constexpr double reach = CHandleMarks::Reach;
    const QPointF devicePos = deviceTransform.map(scenePos);
    const QRectF rect = deviceTransform.mapRect(handlesRect().translated(pos()));
    if (!rect.adjusted(-reach, -reach, reach, reach).contains(devicePos))
        return nullptr;
    for (QGraphicsItem *handle : handles()) {
        if (handle->isVisible() &&
            handle->contains(handle->deviceTransform(deviceTransform).inverted().map(devicePos)))
            return handle;
    }
    return nullptr;
}

QVariant CItemView::itemChange(GraphicsItemChange change, const QVariant &value)
{
    if (change == ItemSelectedHasChanged)
        showHandles(value.toBool());
    return QGraphicsObject::itemChange(change, value);
}

void CItemView::hoverEnterEvent(QGraphicsSceneHoverEvent *)
{
    m_hovered = true;
    update();
}

void CItemView::hoverLeaveEvent(QGraphicsSceneHoverEvent *)
{
    m_hovered = false;
    update();
}
