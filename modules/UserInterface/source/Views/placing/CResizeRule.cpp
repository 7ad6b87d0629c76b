#include "CResizeRule.h"

#include <QTransform>

#include <algorithm>
#include <array>
#include <cmath>

namespace {
constexpr std::array<int, 8> HorizontalSides = {0, 1, 1, 1, 0, -1, -1, -1};
constexpr std::array<int, 8> VerticalSides = {-1, -1, 0, 1, 1, 1, 0, -1};

/// Where a coordinate goes when its size grows by `growth` on the given side (0: on both).
double movedBy(double growth, int side)
{
    if (side == 0)
        return -std::round(growth / 2);
    return side < 0 ? -growth : 0;
}
} // namespace

CResizeRule::CResizeRule(ResizeKind kind, int handle, const Geometry &start,
                         const SizeLimits &limits, double degrees)
    : m_kind(kind),
      m_horizontal(horizontalSide(handle)),
      m_vertical(kind == ResizeKind::WidthOnly ? 0 : verticalSide(handle)),
      m_start(start),
      m_limits(limits),
      m_degrees(degrees)
{
}

int CResizeRule::horizontalSide(int handle)
{
    return HorizontalSides.at(static_cast<size_t>(handle));
}

int CResizeRule::verticalSide(int handle)
{
    return VerticalSides.at(static_cast<size_t>(handle));
}

CResizeRule::Geometry CResizeRule::geometryFor(const QPointF &offset, Modifiers modifiers) const
{
    const QPointF own = QTransform().rotate(-m_degrees).map(offset);
    return m_kind == ResizeKind::Circular ? circleFor(own, modifiers) : boxFor(own, modifiers);
}

QSizeF CResizeRule::limited(const QSizeF &size) const
{
    return {
        std::min(std::max(size.width(), m_limits.minimum.width()), m_limits.maximum.width()),
        std::min(std::max(size.height(), m_limits.minimum.height()), m_limits.maximum.height())};
}

/// The size in the proportions of the start, as large as the dragged edges ask for.
QSizeF CResizeRule::withAspect(const QSizeF &size) const
{
    const QSizeF &start = m_start.size;
    if (m_kind == ResizeKind::Line)
        return alongLine(size);
    if (start.width() == 0 || start.height() == 0)
        return size;
    const double across = size.width() / start.width();
    const double down = size.height() / start.height();
    double factor = std::abs(across - 1) > std::abs(down - 1) ? across : down;
    if (m_horizontal == 0 || m_vertical == 0)
        factor = m_horizontal == 0 ? down : across;
    return {std::round(start.width() * factor), std::round(start.height() * factor)};
}

/// The end where the line passes the pointer. A flat line would leap away from it if the side that
/// grows most in proportion decided.
QSizeF CResizeRule::alongLine(const QSizeF &size) const
{
    const QSizeF &start = m_start.size;
    const double across = m_horizontal != 0 ? start.width() : 0;
    const double down = m_vertical != 0 ? start.height() : 0;
    const double square = across * across + down * down;
    if (square == 0)
        return start; // no direction that the handle could go
    const double factor = (size.width() * across + size.height() * down) / square;
    return {std::round(start.width() * factor), std::round(start.height() * factor)};
}

CResizeRule::Geometry CResizeRule::boxFor(const QPointF &own, Modifiers modifiers) const
{
    const double share = modifiers.fromCentre ? 2 : 1;
    const QSizeF dragged(std::round(own.x()) * m_horizontal * share,
                         std::round(own.y()) * m_vertical * share);
    QSizeF size = limited(m_start.size + dragged);
    if (modifiers.keepAspect && m_kind != ResizeKind::WidthOnly)
        size = limited(withAspect(size));
    if (m_kind == ResizeKind::WidthOnly)
        size.setHeight(m_start.size.height());
    const QSizeF growth = size - m_start.size;
    const QPointF moved(movedBy(growth.width(), modifiers.fromCentre ? 0 : m_horizontal),
                        movedBy(growth.height(), modifiers.fromCentre ? 0 : m_vertical));
    return turned({m_start.position + moved, size});
}

/// A turned box lies about its middle, so a middle that moves along the box's own axes has to move
/// along the turned ones: what is seen of the edges that are not dragged then stays.
CResizeRule::Geometry CResizeRule::turned(const Geometry &unturned) const
{
    if (m_degrees == 0)
        return unturned;
    const auto middleOf = [](const Geometry &each) {
        return each.position + QPointF(each.size.width(), each.size.height()) / 2;
    };
    const QPointF moved = middleOf(unturned) - middleOf(m_start);
    const QPointF corner = unturned.position - moved + QTransform().rotate(m_degrees).map(moved);
    return {QPointF(std::round(corner.x()), std::round(corner.y())), unturned.size};
}

CResizeRule::Geometry CResizeRule::circleFor(const QPointF &own, Modifiers modifiers) const
{
    double growth = own.x() * m_horizontal + own.y() * m_vertical;
    if (m_horizontal != 0 && m_vertical != 0)
        growth = std::max(own.x() * m_horizontal, own.y() * m_vertical);
    if (modifiers.fromCentre)
        growth *= 2;
    const double wanted = m_start.size.width() + growth;
    const double width = std::max(0.0, limited({wanted, wanted}).width());
    // By whole radii: the centre then moves by whole units and the opposite side stays put.
    const double half = std::round((width - m_start.size.width()) / 2);
    const double turned = half * (modifiers.fromCentre ? 0 : 1);
    const QPointF along =
        QTransform().rotate(m_degrees).map(QPointF(m_horizontal * turned, m_vertical * turned));
    const QSizeF change(2 * half, 2 * half);
    return {m_start.position + QPointF(std::round(along.x()), std::round(along.y())),
            m_start.size + change};
}
