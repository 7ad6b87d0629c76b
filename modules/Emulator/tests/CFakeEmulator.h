#pragma once

#include "QxKivEmuLib.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>
#include <QVector>

#include <cstdint>
#include <functional>

/// What the library answers to one request.
struct SFakeAnswer
{
    const char *text = "CLEAR(0);END(0);"; ///< may be null
    QByteArray bytes = QByteArray("\0\0\0\1\0\0\0\0", 8);
    size_t ramG = 0;
    QByteArray errors;
    uint32_t width = 2;
    uint32_t height = 2;
    uint32_t colour = 0xFF336699; ///< of all pixels
    size_t ramDl = 8;
};

/// Stands in for the emulator library in a test program: it defines the library's five functions,
/// writes down each call, and answers when the test says so, from a thread of its own.
class CFakeEmulator
{
public:
    /// A request that the program has made and that is not answered yet.
    struct SRequest
    {
        QString screen;    ///< "name" of what the iterator stood at
        QStringList items; ///< "name" of all items that it walked
        void *observer;
        bool background;
    };
    using SAnswer = SFakeAnswer;
    using Log = std::function<void(const QString &)>;

    static CFakeEmulator &instance();

    /// Forgets all; `log` is told each call as a line such as "start 256" or "render bg Page 1".
    void reset(Log log = {});
    /// When set, answers each request at once, still from another thread.
    void setAutoAnswer(std::function<SAnswer(const SRequest &)> answer);

    const QList<SRequest> &requests() const { return m_requests; }
    /// Answers the oldest request: display list, then complete frame. False when there is none.
    bool answer(const SAnswer &answer = {});
    bool answerDisplayList(const SAnswer &answer = {});
    bool answerFrame(const SAnswer &answer = {}, uint32_t flags = 1);
    /// A frame of these pixels alone, without a display list.
    bool answerPixels(const QVector<argb8888> &pixels, uint32_t width, uint32_t height,
                      uint32_t flags = 1, size_t ramDl = 0);
    /// Null and zero for everything that may be.
    bool answerNulls();

    // Called by the five functions.
    void setCallbacks(EmuFrameCallback frame, EmuDisplayListCallback displayList);
    void record(const QString &call);
    void take(const SRequest &request);
    void stop();

private:
    EmuFrameCallback m_frame = nullptr;
    EmuDisplayListCallback m_displayList = nullptr;
    Log m_log;
    std::function<SAnswer(const SRequest &)> m_autoAnswer;
    QList<SRequest> m_requests;
};
