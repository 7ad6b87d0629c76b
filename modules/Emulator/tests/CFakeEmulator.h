#pragma once

#include "IModelItem.h"
#include "IModelIterator.h"
#include "IModelProperty.h"
#include "QxKivEmuLib.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>
#include <QVector>

#include <cstdint>
#include <cstring>
#include <functional>
#include <thread>
#include <utility>

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

    static CFakeEmulator &instance()
    {
        static CFakeEmulator fake;
        return fake;
    }

    /// Forgets all; `log` is told each call as a line such as "start 256" or "render bg Page 1".
    void reset(Log log = {})
    {
        m_log = std::move(log);
        m_autoAnswer = {};
        m_requests.clear();
    }
    /// When set, answers each request at once, still from another thread.
    void setAutoAnswer(std::function<SAnswer(const SRequest &)> answer)
    {
        m_autoAnswer = std::move(answer);
    }

    const QList<SRequest> &requests() const { return m_requests; }
    /// Answers the oldest request: display list, then complete frame. False when there is none.
    bool answer(const SAnswer &answer = {})
    {
        return answerDisplayList(answer) && answerFrame(answer);
    }
    bool answerDisplayList(const SAnswer &answer = {})
    {
        if (m_requests.isEmpty() || !m_displayList)
            return false;
        QByteArray errors = answer.errors;
        onOtherThread([&] {
            m_displayList(answer.text, reinterpret_cast<const unsigned char *>(answer.bytes.data()),
                          answer.bytes.size(), answer.ramG, errors.data());
        });
        return true;
    }
    bool answerFrame(const SAnswer &answer = {}, uint32_t flags = 1)
    {
        // Freed when the call returns: a pointer that is kept is then seen by AddressSanitizer.
        const QVector<argb8888> pixels(static_cast<int>(answer.width * answer.height),
                                       answer.colour);
        return answerPixels(pixels, answer.width, answer.height, flags, answer.ramDl);
    }
    /// A frame of these pixels alone, without a display list.
    bool answerPixels(const QVector<argb8888> &pixels, uint32_t width, uint32_t height,
                      uint32_t flags = 1, size_t ramDl = 0)
    {
        if (m_requests.isEmpty() || !m_frame)
            return false;
        const SRequest request = m_requests.first();
        if ((flags & 1) != 0)
            m_requests.removeFirst();
        const argb8888 *buffer = pixels.isEmpty() ? nullptr : pixels.constData();
        onOtherThread([&] {
            m_frame(!request.background, buffer, width, height, request.observer, flags, ramDl);
        });
        return true;
    }
    /// Null and zero for everything that may be.
    bool answerNulls()
    {
        if (m_requests.isEmpty() || !m_displayList)
            return false;
        onOtherThread([this] { m_displayList(nullptr, nullptr, 0, 0, nullptr); });
        return answerPixels({}, 2, 2);
    }

    // Called by the five functions.
    void setCallbacks(EmuFrameCallback frame, EmuDisplayListCallback displayList)
    {
        m_frame = frame;
        m_displayList = displayList;
    }
    void record(const QString &call)
    {
        if (m_log)
            m_log(call);
    }
    void take(const SRequest &request)
    {
        record((request.background ? "render bg " : "render fg ") + request.screen);
        m_requests.append(request);
        if (m_autoAnswer)
            answer(m_autoAnswer(request));
    }
    void stop()
    {
        record(QStringLiteral("emu stop"));
        m_requests.clear();
    }

private:
    /// The library calls back from its worker; the test goes on when the call has returned.
    template<typename Function>
    static void onOtherThread(const Function &function)
    {
        std::thread(function).join();
    }

    EmuFrameCallback m_frame = nullptr;
    EmuDisplayListCallback m_displayList = nullptr;
    Log m_log;
    std::function<SAnswer(const SRequest &)> m_autoAnswer;
    QList<SRequest> m_requests;
};

inline QString nameOfItem(IModelItem *item)
{
    for (int i = 0; i < item->propertyCount(); ++i)
        if (std::strcmp(item->property(i)->name(), "name") == 0)
            return QString::fromUtf8(item->property(i)->valueText());
    return {};
}

// The library's functions, for the one file of a test program; no library that is linked is asked
// for them.
int Emu_Register(EmuFrameCallback frame, EmuDisplayListCallback displayList)
{
    CFakeEmulator::instance().setCallbacks(frame, displayList);
    CFakeEmulator::instance().record(QStringLiteral("emu register"));
    return 1;
}

int Emu_Start(const char *scriptPath, uint32_t chipCode)
{
    CFakeEmulator::instance().record(
        QStringLiteral("emu start %1 %2").arg(QString::fromLocal8Bit(scriptPath)).arg(chipCode));
    return 1;
}

int Emu_ConfigScreen(uint32_t width, uint32_t height)
{
    CFakeEmulator::instance().record(QStringLiteral("emu config %1 %2").arg(width).arg(height));
    return 1;
}

int Emu_RenderObjects(IModelIterator *iterator, void *observer, uint32_t background)
{
    CFakeEmulator::SRequest request{{}, {}, observer, background != 0};
    if (iterator->current()) // the screen comes first
        request.screen = nameOfItem(iterator->current());
    for (iterator->next(); iterator->current(); iterator->next())
        request.items.append(nameOfItem(iterator->current()));
    CFakeEmulator::instance().take(request);
    return 1;
}

int Emu_Stop()
{
    CFakeEmulator::instance().stop();
    return 1;
}
