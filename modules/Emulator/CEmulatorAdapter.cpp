#include "CEmulatorAdapter.h"

#include "CItemModel.h"
#include "CProjectModel.h"

#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMetaMethod>

#include <algorithm>
#include <cstring>
#include <utility>

namespace {

constexpr uint32_t FrameComplete = 1; ///< bit 0 of a frame's flags
constexpr uint32_t MaxSide = 32767;   ///< pixels; what QPixmap can hold

CEmulatorAdapter *theAdapter = nullptr;

QImage copyOf(const argb8888 *buffer, uint32_t width, uint32_t height)
{
    if (!buffer || width == 0 || height == 0 || width > MaxSide || height > MaxSide)
        return {};
    QImage image(static_cast<int>(width), static_cast<int>(height), QImage::Format_RGB32);
    if (image.isNull())
        return image;
    for (uint32_t row = 0; row < height; ++row)
        std::memcpy(image.scanLine(static_cast<int>(row)), buffer + size_t{row} * width,
                    size_t{width} * sizeof(argb8888));
    return image;
}

} // namespace

CEmulatorAdapter *CEmulatorAdapter::instance()
{
    if (!theAdapter)
        theAdapter = new CEmulatorAdapter;
    return theAdapter;
}

CEmulatorAdapter::CEmulatorAdapter() : m_foregroundIterator(std::make_unique<CModelIterator>())
{
    // For receivers that connect queued, and for signal spies.
    qRegisterMetaType<uint32_t>("uint32_t");
    qRegisterMetaType<size_t>("size_t");
    qRegisterMetaType<void *>("void*");
}

CEmulatorAdapter::~CEmulatorAdapter()
{
    theAdapter = nullptr;
}

int CEmulatorAdapter::mostAtOnce()
{
    return &Emu_RequestsAtOnce ? std::max(1, static_cast<int>(Emu_RequestsAtOnce())) : 1;
}

bool CEmulatorAdapter::registerEmulator(const QString &scriptPath)
{
    m_registered = false;
    if (!QFileInfo(scriptPath).isFile())
        return false;
    m_scriptPath = scriptPath;
    Emu_Register(&CEmulatorAdapter::libraryFrame, &CEmulatorAdapter::libraryDisplayList);
    if (&Emu_RegisterMemory) // not every library has it
        Emu_RegisterMemory(&CEmulatorAdapter::libraryMemory);
    if (&Emu_RegisterCutTexts)
        Emu_RegisterCutTexts(&CEmulatorAdapter::libraryCutTexts);
    m_registered = true;
    return true;
}

void CEmulatorAdapter::renderForeground(CItemModel *screen, void *observer,
                                        CModelIterator::EHidden hidden)
{
    if (!m_registered)
        return;
    const SForegroundRequest request{screen, observer, hidden};
    if (isBusy())
        m_pendingForeground = request;
    else
        issueForeground(request);
}

void CEmulatorAdapter::renderBackground(IModelIterator *iterator, void *observer)
{
    if (!m_registered)
        return;
    const bool hasRoom = m_backgroundInFlight && m_inFlight.size() < m_mostInFlight;
    if (isBusy() && !hasRoom) {
        m_backgroundQueue.push_back({iterator, observer});
        return;
    }
    m_backgroundInFlight = true;
    issue(iterator, observer, ERequest::Background);
}

void CEmulatorAdapter::forgetScreen(const QStandardItem *screen)
{
    if (m_pendingForeground.screen && m_pendingForeground.screen == screen)
        clearPendingForeground();
}

void CEmulatorAdapter::followProject(CProjectModel *project)
{
    connect(project, &QAbstractItemModel::rowsAboutToBeRemoved, this,
            [this, project](const QModelIndex &parent, int first, int last) {
                if (parent.isValid())
                    return; // screens are the rows below the root
                for (int row = first; row <= last; ++row)
                    forgetScreen(project->item(row));
            });
    connect(project, &QAbstractItemModel::modelAboutToBeReset, this,
            &CEmulatorAdapter::clearPendingForeground);
    connect(project, &QObject::destroyed, this, &CEmulatorAdapter::clearPendingForeground);
}

void CEmulatorAdapter::withdraw(const void *observer)
{
    const auto isHis = [observer](const SBackgroundRequest &request) {
        return request.observer == observer;
    };
    m_backgroundQueue.erase(
        std::remove_if(m_backgroundQueue.begin(), m_backgroundQueue.end(), isHis),
        m_backgroundQueue.end());
    if (m_pendingForeground.observer == observer)
        clearPendingForeground();
    for (SInFlight &request : m_inFlight)
        if (request.observer == observer)
            request.isWanted = false; // a new requester may get the same address before it comes
}

void CEmulatorAdapter::emulatorStart(uint32_t platform)
{
    if (isBusy())
        emulatorStop(); // else the request in flight could be lost and everything wait behind it
    m_chipCode = platform;
    Emu_Start(QFile::encodeName(m_scriptPath).constData(), platform);
}

void CEmulatorAdapter::emulatorConfigScreen(uint32_t width, uint32_t height)
{
    Emu_ConfigScreen(width, height);
}

void CEmulatorAdapter::emulatorStop()
{
    m_hasLeftBehind = Emu_Stop() == 0 || m_hasLeftBehind;
    beginRun(); // after the stop: what was called back until then still belongs to the old run
}

void CEmulatorAdapter::beginRun()
{
    ++m_run;
    m_inFlight.clear();
    m_backgroundInFlight = false;
    m_backgroundQueue.clear();
    clearPendingForeground();
}

int CEmulatorAdapter::libraryFrame(bool output, const argb8888 *buffer, uint32_t hsize,
                                   uint32_t vsize, void *observer, uint32_t flags, size_t ramDl)
{
    if ((flags & FrameComplete) != 0)
        instance()->post(&CEmulatorAdapter::takeFrame, SFrame{output, copyOf(buffer, hsize, vsize),
                                                              hsize, vsize, observer, ramDl});
    return 1;
}

int CEmulatorAdapter::libraryDisplayList(const char *text, const unsigned char *bytes,
                                         int byteCount, size_t ramG, char *errors)
{
    const QByteArray copiedBytes =
        bytes && byteCount > 0 ? QByteArray(reinterpret_cast<const char *>(bytes), byteCount)
                               : QByteArray();
    instance()->post(&CEmulatorAdapter::takeDisplayList,
                     SDisplayList{QString::fromLatin1(text), copiedBytes, ramG, QByteArray(errors),
                                  std::exchange(instance()->m_memory, {}),
                                  std::exchange(instance()->m_cutTexts, {})});
    return 1;
}

int CEmulatorAdapter::libraryMemory(const unsigned char *memory, size_t size,
                                    const EmuAsset *assets, size_t assetCount)
{
    if (!instance()->m_memoryWanted)
        return 1;
    SGraphicsMemory copy;
    copy.isKnown = true;
    copy.bytes = QByteArray(reinterpret_cast<const char *>(memory), static_cast<int>(size));
    for (const EmuAsset *asset = assets; asset != assets + assetCount; ++asset)
        copy.assets.append({QFile::decodeName(asset->file), asset->format, asset->width,
                            asset->height, asset->stride, asset->address, asset->bytes,
                            asset->paletteAddress, asset->paletteBytes});
    instance()->m_memory = copy;
    return 1;
}

int CEmulatorAdapter::libraryCutTexts(const uint32_t *items, size_t count)
{
    instance()->m_cutTexts = QVector<quint32>(items, items + count);
    return 1;
}

template<typename Answer>
void CEmulatorAdapter::post(void (CEmulatorAdapter::*receiver)(const Answer &), Answer answer)
{
    const auto deliver = [this, receiver, run = m_run.load(), answer = std::move(answer)] {
        if (run == m_run)
            (this->*receiver)(answer);
    };
    QMetaObject::invokeMethod(this, deliver, Qt::QueuedConnection);
}

void CEmulatorAdapter::takeFrame(const SFrame &frame)
{
    const uint64_t run = m_run;
    const bool isWanted = !m_inFlight.empty() && m_inFlight.front().isWanted;
    if (isWanted && frame.output) {
        const bool canHoldPixmaps = qobject_cast<QGuiApplication *>(QCoreApplication::instance());
        const QPixmap pixmap = canHoldPixmaps ? QPixmap::fromImage(frame.image) : QPixmap();
        Q_EMIT emulatorFrameCallback(true, pixmap, frame.width, frame.height, frame.observer,
                                     frame.ramDl);
    } else if (isWanted) {
        const auto *pixels = reinterpret_cast<const argb8888 *>(frame.image.constBits());
        Q_EMIT emulatorBackgroundFrameCallback(false, pixels, frame.width, frame.height,
                                               frame.observer, frame.ramDl);
    }
    if (run != m_run)
        return; // a receiver has stopped the emulator
    if (!m_inFlight.empty())
        m_inFlight.pop_front();
    dispatchNext();
}

void CEmulatorAdapter::takeDisplayList(const SDisplayList &list)
{
    if (m_inFlight.empty() || !m_inFlight.front().isWanted)
        return;
    void *const observer = m_inFlight.front().observer;
    if (m_backgroundInFlight && list.memory.isKnown)
        Q_EMIT emulatorBackgroundMemory(list.memory, observer);
    if (m_backgroundInFlight && !list.cutTexts.isEmpty())
        Q_EMIT emulatorBackgroundCutTexts(list.cutTexts, observer);
    QByteArray errors = list.errors; // receivers get a pointer that they could write through
    if (m_backgroundInFlight)
        Q_EMIT emulatorBackgroundFrameDLCallback(list.text, list.bytes, observer, list.ramG,
                                                 errors.data());
    else if (observer)
        Q_EMIT emulatorFrameDLCallback(list.text, list.bytes, observer, list.ramG, errors.data());
}

void CEmulatorAdapter::dispatchNext()
{
    while (!m_backgroundQueue.empty() && m_inFlight.size() < m_mostInFlight) {
        const SBackgroundRequest next = m_backgroundQueue.front();
        m_backgroundQueue.pop_front();
        // m_backgroundInFlight keeps the mark of the request before: see the class comment.
        issue(next.iterator, next.observer, ERequest::Background);
    }
    if (isBusy())
        return;
    m_backgroundInFlight = false;
    if (m_pendingForeground.observer)
        issueForeground(std::exchange(m_pendingForeground, {}));
}

void CEmulatorAdapter::issueForeground(const SForegroundRequest &request)
{
    m_foregroundIterator->setRoot(request.screen, request.hidden);
    issue(m_foregroundIterator.get(), request.observer, ERequest::Foreground);
}

void CEmulatorAdapter::issue(IModelIterator *iterator, void *observer, ERequest request)
{
    m_inFlight.push_back({observer, true});
    m_memoryWanted =
        request == ERequest::Background &&
        isSignalConnected(QMetaMethod::fromSignal(&CEmulatorAdapter::emulatorBackgroundMemory));
    Emu_RenderObjects(iterator, observer, static_cast<uint32_t>(request));
}

void CEmulatorAdapter::clearPendingForeground()
{
    m_pendingForeground = {};
}
