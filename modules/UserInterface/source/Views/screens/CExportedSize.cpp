#include "CExportedSize.h"

#include "CEmulatorAdapter.h"

#include <utility>

namespace {
constexpr int Rest = 200; ///< milliseconds: drags ask with each move
} // namespace

CExportedSize::CExportedSize(QObject *parent) : QObject(parent)
{
    m_rest.setSingleShot(true);
    m_rest.setInterval(Rest);
    connect(&m_rest, &QTimer::timeout, this, &CExportedSize::ask);
    connect(&m_request, &CFrameRequest::frameTaken, this,
            [this](const QPixmap &, size_t displayList, size_t graphicsMemory) {
                Q_EMIT known(displayList, graphicsMemory);
            });
}

void CExportedSize::askSoon(CScreenModel *screen)
{
    m_screen = screen;
    m_rest.start();
}

void CExportedSize::withdraw()
{
    m_screen = nullptr;
    m_rest.stop();
    m_request.withdraw();
}

/// Of several foreground requests that wait, the emulator keeps one; it must be the canvas's.
void CExportedSize::ask()
{
    if (CEmulatorAdapter::instance()->isBusy())
        m_rest.start();
    else if (CScreenModel *screen = std::exchange(m_screen, nullptr))
        m_request.ask(screen);
}
