#pragma once

#include "CAnswers.h"
#include "CModelIterator.h"
#include "CScreenModel.h"

#include <QDir>
#include <QImage>

/// Renders screens through the emulator library and waits for each frame.
namespace FrameRecorder {

struct Answer
{
    QImage frame;
    QString errors; ///< one message a line
};

inline QString programFile(const QString &name)
{
    return QDir(qEnvironmentVariable("KIV_BIN_DIR")).filePath(name);
}

inline bool start(quint32 chipCode, const QSize &size)
{
    CAnswers::instance().registerCallbacks();
    return Emu_Start(programFile(QStringLiteral("kiv_render.lua")).toLocal8Bit(), chipCode) &&
           Emu_ConfigScreen(uint32_t(size.width()), uint32_t(size.height()));
}

inline Answer render(CScreenModel &screen)
{
    CAnswers::instance().clear();
    CModelIterator iterator(&screen);
    Emu_RenderObjects(&iterator, nullptr, 1);
    const SAnswer answer = CAnswers::instance().wait(1).front();
    const QImage frame(reinterpret_cast<const uchar *>(answer.pixels.data()), int(answer.width),
                       int(answer.height), int(answer.width) * 4, QImage::Format_RGB32);
    return {frame.copy(), QString::fromStdString(answer.errors)};
}

} // namespace FrameRecorder
