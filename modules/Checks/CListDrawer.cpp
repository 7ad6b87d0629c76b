#include "CListDrawer.h"

#include "executor/CExecutor.h"
#include "executor/CRamG.h"
#include "raster/CSurface.h"

using namespace kivemu;

CListDrawer::CListDrawer() : m_executor(std::make_unique<CExecutor>())
{
}

CListDrawer::~CListDrawer() = default;

void CListDrawer::setScreen(const QByteArray &memory, const QSize &size)
{
    m_memory = std::make_unique<CRamG>(static_cast<size_t>(memory.size()));
    m_memory->append(reinterpret_cast<const uint8_t *>(memory.constData()),
                     static_cast<size_t>(memory.size()));
    if (!m_surface || m_surface->width() != size.width() || m_surface->height() != size.height())
        m_surface = std::make_unique<CSurface>(size.width(), size.height());
}

QImage CListDrawer::draw(const std::vector<uint32_t> &words)
{
    m_executor->execute(words.data(), words.size(), *m_memory, *m_surface);
    const CSurface &surface = *m_surface;
    return {reinterpret_cast<const uchar *>(surface.row(0)), surface.width(), surface.height(),
            surface.stride() * int(sizeof(QRgb)), QImage::Format_RGB32};
}
