#pragma once

#include <QImage>

#include <cstdint>
#include <memory>
#include <vector>

namespace kivemu {
class CExecutor;
class CRamG;
class CSurface;
} // namespace kivemu

/// Draws display lists as the emulator does. What it decoded is kept for the next list.
class CListDrawer
{
public:
    CListDrawer();
    ~CListDrawer();

    /// What the next lists are drawn with, and how large.
    void setScreen(const QByteArray &memory, const QSize &size);
    /// Format_RGB32; valid until the next one.
    QImage draw(const std::vector<uint32_t> &words);

private:
    std::unique_ptr<kivemu::CRamG> m_memory;
    std::unique_ptr<kivemu::CExecutor> m_executor;
    std::unique_ptr<kivemu::CSurface> m_surface;
};
