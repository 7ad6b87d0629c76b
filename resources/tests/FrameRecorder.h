#pragma once

#include "CModelIterator.h"
#include "CScreenModel.h"
#include "QxKivEmuLib.h"

#include <QCoreApplication>
#include <QDir>
#include <QImage>
#include <QString>

#include <condition_variable>
#include <mutex>

/// Renders screens through the emulator library and waits for each frame.
/// Callbacks come without a pointer for the display list, so there is one for the process.
class FrameRecorder
{
public:
    struct Answer
    {
        QImage frame;
        QString errors; ///< one message a line
        size_t displayListBytes = 0;
        size_t graphicsMemoryBytes = 0;
    };

    static QString programFile(const QString &name)
    {
        return QDir(qEnvironmentVariable("KIV_BIN_DIR")).filePath(name);
    }

    static bool start(quint32 chipCode, const QSize &size)
    {
        return Emu_Register(&takeFrame, &takeDisplayList) &&
               Emu_Start(programFile(QStringLiteral("kiv_render.lua")).toLocal8Bit(), chipCode) &&
               Emu_ConfigScreen(uint32_t(size.width()), uint32_t(size.height()));
    }
    static void stop() { Emu_Stop(); }

    static Answer render(CScreenModel &screen)
    {
        State &s = state();
        std::unique_lock<std::mutex> lock(s.mutex);
        s.complete = false;
        lock.unlock();
        CModelIterator iterator(&screen);
        Emu_RenderObjects(&iterator, nullptr, 1);
        lock.lock();
        s.changed.wait(lock, [&s] { return s.complete; });
        return s.answer;
    }

private:
    struct State
    {
        std::mutex mutex;
        std::condition_variable changed;
        Answer answer;
        bool complete = false;
    };
    static State &state()
    {
        static State s;
        return s;
    }

    static int takeFrame(bool, const argb8888 *pixels, uint32_t width, uint32_t height, void *,
                         uint32_t flags, size_t displayListBytes)
    {
        if (!(flags & 1))
            return 0;
        State &s = state();
        const std::lock_guard<std::mutex> lock(s.mutex);
        s.answer.frame = QImage(reinterpret_cast<const uchar *>(pixels), int(width), int(height),
                                int(width) * 4, QImage::Format_RGB32)
                             .copy();
        s.answer.displayListBytes = displayListBytes;
        s.complete = true;
        s.changed.notify_all();
        return 0;
    }

    static int takeDisplayList(const char *, const unsigned char *, int, size_t graphicsMemory,
                               char *errors)
    {
        State &s = state();
        const std::lock_guard<std::mutex> lock(s.mutex);
        s.answer.errors = QString::fromUtf8(errors);
        s.answer.graphicsMemoryBytes = graphicsMemory;
        return 0;
    }
};
