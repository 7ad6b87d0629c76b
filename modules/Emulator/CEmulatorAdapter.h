#pragma once

#include "CModelIterator.h"
#include "QxKivEmuLib.h"
#include "SScreenExport.h"

#include <QByteArray>
#include <QImage>
#include <QObject>
#include <QPixmap>
#include <QString>

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>

class CItemModel;
class CProjectModel;
class QStandardItem;

/// The program's only door to the emulator library: starts and stops it, lets it render one
/// request at a time, and tells the answers as signals.
///
/// Requests: while one is in flight, later ones are parked. Of parked foreground requests only the
/// newest survives; background requests are queued and go first. A background request that was
/// parked behind a foreground one is issued without its background mark: its display list comes as
/// emulatorFrameDLCallback. Whoever wants all cores lets more background requests be in flight at
/// once; the answers still come in the order of the requests.
/// Answers: display list first, then the frame, which ends the request. `observer` is the opaque
/// pointer of the request; it is compared by receivers and never followed here. Pointers in signals
/// are valid during the emission only.
/// Lifetimes: nothing parked outlives what it points to, see forgetScreen() and withdraw(). Answers
/// of a stopped run are dropped.
/// Threads: all functions and signals on the thread of the first instance() call (the GUI thread).
/// The library calls back on a thread of its own; there the data is only copied and posted.
class CEmulatorAdapter final : public QObject
{
    Q_OBJECT

public:
    /// The one adapter of the process, made on the first call and never deleted.
    static CEmulatorAdapter *instance();
    ~CEmulatorAdapter() override;

    /// Must succeed once before any request counts. False when `scriptPath` (the render script, an
    /// absolute path) is not a file; requests are then ignored.
    bool registerEmulator(const QString &scriptPath);
    bool isRegistered() const { return m_registered; }
    bool isBusy() const { return !m_inFlight.empty(); }
    /// True when something that could not be ended in time still runs, in the library or elsewhere:
    /// the process should then end by _exit(), once all is saved.
    bool hasLeftBehind() const { return m_hasLeftBehind; }
    void noteLeftBehind() { m_hasLeftBehind = true; }
    /// How many requests the library works on at once.
    static int mostAtOnce();
    /// How many background requests may be in flight, 1 at first.
    void setInFlight(int most) { m_mostInFlight = static_cast<size_t>(most); }
    /// The chip with which the emulator was last started; 0 before.
    uint32_t chipCode() const { return m_chipCode; }

    /// Asks for frame and display list of one screen, to be shown.
    void renderForeground(CItemModel *screen, void *observer,
                          CModelIterator::EHidden hidden = CModelIterator::EHidden::Walked);
    /// Asks for display list and raw frame of what `iterator` walks. The iterator stays the
    /// caller's and must live until the answer has come or the request is withdrawn.
    void renderBackground(IModelIterator *iterator, void *observer);

    /// Clears a parked foreground request for `screen`, which is about to go.
    void forgetScreen(const QStandardItem *screen);
    /// Forgets screens of `project` as they are removed, until it is deleted.
    void followProject(CProjectModel *project);
    /// Takes back all that `observer` has asked for: its parked requests are removed, the answer to
    /// one in flight is not told. For a requester that goes away or waits no longer.
    void withdraw(const void *observer);

public Q_SLOTS:
    void emulatorStart(uint32_t platform);
    void emulatorConfigScreen(uint32_t width, uint32_t height);
    /// Returns when the library is idle, or after half a second; parked requests are cleared.
    void emulatorStop();

Q_SIGNALS:
    void emulatorFrameCallback(bool output, QPixmap buffer, uint32_t hsize, uint32_t vsize,
                               void *observer, size_t RAM_DL_Usage);
    void emulatorFrameDLCallback(QString dlTextBuffer, QByteArray dlBinBuffer, void *observer,
                                 size_t RAM_G_Usage, char *errorMessages);
    void emulatorBackgroundFrameCallback(bool output, const argb8888 *buffer, uint32_t hsize,
                                         uint32_t vsize, void *observer, size_t RAM_DL_Usage);
    void emulatorBackgroundFrameDLCallback(QString dlTextBuffer, QByteArray dlBinBuffer,
                                           void *observer, size_t RAM_G_Usage, char *errorMessages);
    /// Before the display list of a background request, where the library tells it.
    void emulatorBackgroundMemory(const SGraphicsMemory &memory, void *observer);
    /// In the same way: ids of the items that have no room for one of their texts.
    void emulatorBackgroundCutTexts(const QVector<quint32> &items, void *observer);

private:
    enum class ERequest : uint32_t { Foreground = 0, Background = 1 };
    struct SFrame
    {
        bool output;
        QImage image; ///< Format_RGB32; null when a side is 0
        uint32_t width;
        uint32_t height;
        void *observer;
        size_t ramDl;
    };
    struct SDisplayList
    {
        QString text;
        QByteArray bytes;
        size_t ramG;
        QByteArray errors;
        SGraphicsMemory memory;
        QVector<quint32> cutTexts;
    };
    struct SInFlight
    {
        void *observer;
        bool isWanted; ///< false when it was withdrawn
    };
    struct SForegroundRequest
    {
        CItemModel *screen = nullptr;
        void *observer = nullptr; ///< null: nothing is asked for
        CModelIterator::EHidden hidden = CModelIterator::EHidden::Walked;
    };
    struct SBackgroundRequest
    {
        IModelIterator *iterator; ///< the requester's
        void *observer;
    };

    CEmulatorAdapter();

    // On the library's thread.
    static int libraryFrame(bool output, const argb8888 *buffer, uint32_t hsize, uint32_t vsize,
                            void *observer, uint32_t flags, size_t ramDl);
    static int libraryDisplayList(const char *text, const unsigned char *bytes, int byteCount,
                                  size_t ramG, char *errors);
    static int libraryMemory(const unsigned char *memory, size_t size, const EmuAsset *assets,
                             size_t assetCount);
    static int libraryCutTexts(const uint32_t *items, size_t count);
    template<typename Answer>
    void post(void (CEmulatorAdapter::*receiver)(const Answer &), Answer answer);

    // On the GUI thread.
    void takeFrame(const SFrame &frame);
    void takeDisplayList(const SDisplayList &list);
    void dispatchNext();
    void issue(IModelIterator *iterator, void *observer, ERequest request);
    void issueForeground(const SForegroundRequest &request);
    void clearPendingForeground();
    void beginRun();

    QString m_scriptPath;
    uint32_t m_chipCode = 0;
    std::atomic<bool> m_memoryWanted{false};
    SGraphicsMemory m_memory;         ///< of the frame under way; the library's thread only
    QVector<quint32> m_cutTexts;      ///< the same
    std::atomic<uint64_t> m_run{0};   ///< told apart by it: answers of this run and of stopped ones
    std::deque<SInFlight> m_inFlight; ///< in the order in which they are answered
    size_t m_mostInFlight = 1;
    bool m_registered = false;
    bool m_hasLeftBehind = false;
    bool m_backgroundInFlight = false;
    std::unique_ptr<CModelIterator> m_foregroundIterator;
    SForegroundRequest m_pendingForeground;
    std::deque<SBackgroundRequest> m_backgroundQueue;
};
