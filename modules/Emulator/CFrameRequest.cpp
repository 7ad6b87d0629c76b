#include "CFrameRequest.h"

#include "CEmulatorAdapter.h"
#include "CScreenModel.h"

#include <utility>

CFrameRequest::CFrameRequest(QObject *parent, EHidden hidden) : QObject(parent), m_hidden(hidden)
{
    const CEmulatorAdapter *adapter = CEmulatorAdapter::instance();
    connect(adapter, &CEmulatorAdapter::emulatorFrameDLCallback, this,
            &CFrameRequest::takeDisplayList);
    connect(adapter, &CEmulatorAdapter::emulatorFrameCallback, this,
            [this](bool output, const QPixmap &frame, uint32_t, uint32_t, void *observer,
                   size_t displayList) { takeFrame(output, frame, observer, displayList); });
}

CFrameRequest::~CFrameRequest()
{
    withdraw();
}

bool CFrameRequest::isPossible()
{
    return CEmulatorAdapter::instance()->isRegistered();
}

void CFrameRequest::askSoon(CScreenModel *screen)
{
    m_due = screen;
    if (!std::exchange(m_isQueued, true))
        QMetaObject::invokeMethod(this, &CFrameRequest::askForDue, Qt::QueuedConnection);
}

void CFrameRequest::askForDue()
{
    m_isQueued = false;
    if (!m_due)
        return;
    Q_EMIT aboutToAsk();
    if (CScreenModel *screen = std::exchange(m_due, nullptr))
        ask(screen);
}

void CFrameRequest::ask(CScreenModel *screen)
{
    CEmulatorAdapter::instance()->renderForeground(screen, this, m_hidden);
}

void CFrameRequest::withdraw()
{
    m_due = nullptr;
    CEmulatorAdapter::instance()->withdraw(this);
}

void CFrameRequest::takeDisplayList(const QString &text, const QByteArray &bytes, void *observer,
                                    size_t graphicsMemory, const char *errors)
{
    if (observer != this)
        return;
    m_graphicsMemory = graphicsMemory;
    Q_EMIT displayListTaken(text, bytes, QString::fromUtf8(errors));
}

void CFrameRequest::takeFrame(bool output, const QPixmap &frame, void *observer, size_t displayList)
{
    if (observer == this)
        Q_EMIT frameTaken(output ? frame : QPixmap(), displayList, m_graphicsMemory);
}
