#include "CDropGhost.h"

#include "CItemModel.h"
#include "CProjectModel.h"
#include "CScreenModel.h"
#include "CanvasRoles.h"
#include "ItemGeometry.h"
#include "ItemMove.h"
#include "PropertyKey.h"

#include <QGuiApplication>
#include <QPainter>
#include <QWindow>

#include <algorithm>
#include <cmath>

namespace {
constexpr double Above = 900; ///< all items
constexpr double Opacity = 0.85;

/// Qt shows the icon of a drag in a window of its own and can change it no more. Whether that
/// window is visible is Qt's business until the drag is over; what shape it has is not.
void setDragIconShown(bool isShown)
{
    for (QWindow *each : QGuiApplication::allWindows()) {
        if (each->inherits("QShapedPixmapWindow"))
            each->setMask(isShown ? QRegion() : QRegion(-1, -1, 1, 1));
    }
}

/// The least rectangle that holds all that is not transparent.
QRect drawnPart(const QImage &picture)
{
    QRect part;
    for (int y = 0; y < picture.height(); ++y) {
        const auto *row = reinterpret_cast<const QRgb *>(picture.constScanLine(y));
        const auto *const end = row + picture.width();
        const auto isDrawn = [](QRgb each) { return qAlpha(each) != 0; };
        const auto *const first = std::find_if(row, end, isDrawn);
        if (first == end)
            continue;
        const auto *last = end - 1;
        while (!isDrawn(*last))
            --last;
        part |= QRect(QPoint(int(first - row), y), QPoint(int(last - row), y));
    }
    return part;
}
} // namespace

CDropGhost::CDropGhost()
{
    setZValue(Above);
    setAcceptedMouseButtons(Qt::NoButton);
    QObject::connect(&m_request, &CItemPicture::drawn, &m_request,
                     [this](const QImage &page) { take(page); });
}

CDropGhost::~CDropGhost()
{
    if (!m_picture.isNull())
        setDragIconShown(true);
}

void CDropGhost::show(std::unique_ptr<CItemModel> item)
{
    prepareGeometryChange();
    m_type = item->itemTypeName();
    m_frame = ItemGeometry::frameOf(*item).translated(-item->x(), -item->y());
    m_bounds = m_frame.adjusted(-1, -1, 1, 1);
    m_picture = QImage();

    CProjectModel *project = item->project();
    const QSize page = project->resolution();
    const QPointF corner =
        QPointF(page.width() - m_frame.width(), page.height() - m_frame.height()) / 2 -
        m_frame.topLeft();
    m_onPage = QPointF(std::floor(corner.x()), std::floor(corner.y()));
    for (const ItemMove::SAxis &each : ItemMove::axes(*item, m_onPage)) {
        item->setProperty(each.key, each.value, CItemModel::Notify::No);
        if (each.second)
            item->setProperty(each.secondKey, *each.second, CItemModel::Notify::No);
    }
    auto screen = std::make_unique<CScreenModel>(project);
    screen->appendRow(item.release());
    m_request.ask(std::move(screen));
}

void CDropGhost::take(const QImage &page)
{
    const QRect part = drawnPart(page);
    if (part.isEmpty())
        return; // its frame says all there is
    prepareGeometryChange();
    m_picture = page.copy(part);
    m_corner = part.topLeft() - m_onPage;
    m_bounds |= QRectF(m_corner, part.size());
    setDragIconShown(false);
    update();
}

void CDropGhost::moveTo(const QPointF &place)
{
    setPos(std::round(place.x()), std::round(place.y()));
}

void CDropGhost::paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *)
{
    painter->setOpacity(Opacity);
    painter->drawImage(m_corner, m_picture);
    painter->setPen(CanvasColour::outlinePen(CanvasColour::Outline));
    painter->drawRect(m_frame);
}
