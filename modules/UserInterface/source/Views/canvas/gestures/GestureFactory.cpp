#include "GestureFactory.h"

#include "CMultiPointItemView.h"
#include "CPointGesture.h"
#include "CPointHandle.h"
#include "CResizeGesture.h"
#include "CResizeHandle.h"
#include "CRotateGesture.h"
#include "CScaleGesture.h"
#include "CSelectionFrame.h"

std::unique_ptr<CGesture> GestureFactory::forHandle(const QGraphicsItem &handle,
                                                    CSnapping &snapping)
{
    if (const auto *scale = dynamic_cast<const CFrameHandle *>(&handle))
        return std::make_unique<CScaleGesture>(scale->frame().items(), scale->index(), snapping);
    auto *view = static_cast<CItemView *>(handle.parentItem());
    if (const auto *resize = dynamic_cast<const CResizeHandle *>(&handle))
        return std::make_unique<CResizeGesture>(view, resize->index(), snapping);
    if (const auto *point = dynamic_cast<const CPointHandle *>(&handle))
        return std::make_unique<CPointGesture>(static_cast<CMultiPointItemView *>(view),
                                               point->index(), snapping);
    return std::make_unique<CRotateGesture>(view);
}
