#include "CFakeEmulator.h"

#include "IModelItem.h"
#include "IModelIterator.h"
#include "IModelProperty.h"

#include <cstring>
#include <thread>
#include <utility>

namespace {

/// The library calls back from its worker; the test goes on when the call has returned.
template<typename Function>
void onOtherThread(const Function &function)
{
    std::thread(function).join();
}

QString nameOf(IModelItem *item)
{
    for (int i = 0; i < item->propertyCount(); ++i)
        if (std::strcmp(item->property(i)->name(), "name") == 0)
            return QString::fromUtf8(item->property(i)->valueText());
    return {};
}

} // namespace

CFakeEmulator &CFakeEmulator::instance()
{
    static CFakeEmulator fake;
    return fake;
}

void CFakeEmulator::reset(Log log)
{
    m_log = std::move(log);
    m_autoAnswer = {};
    m_requests.clear();
}

void CFakeEmulator::setAutoAnswer(std::function<SAnswer(const SRequest &)> answer)
{
    m_autoAnswer = std::move(answer);
}

bool CFakeEmulator::answer(const SAnswer &answer)
{
    return answerDisplayList(answer) && answerFrame(answer);
}

bool CFakeEmulator::answerDisplayList(const SAnswer &answer)
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

bool CFakeEmulator::answerFrame(const SAnswer &answer, uint32_t flags)
{
    // Freed when the call returns: a pointer that is kept is then seen by AddressSanitizer.
    const QVector<argb8888> pixels(static_cast<int>(answer.width * answer.height), answer.colour);
    return answerPixels(pixels, answer.width, answer.height, flags, answer.ramDl);
}

bool CFakeEmulator::answerPixels(const QVector<argb8888> &pixels, uint32_t width, uint32_t height,
                                 uint32_t flags, size_t ramDl)
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

bool CFakeEmulator::answerNulls()
{
    if (m_requests.isEmpty() || !m_displayList)
        return false;
    onOtherThread([this] { m_displayList(nullptr, nullptr, 0, 0, nullptr); });
    return answerPixels({}, 2, 2);
}

void CFakeEmulator::setCallbacks(EmuFrameCallback frame, EmuDisplayListCallback displayList)
{
    m_frame = frame;
    m_displayList = displayList;
}

void CFakeEmulator::record(const QString &call)
{
    if (m_log)
        m_log(call);
}

void CFakeEmulator::take(const SRequest &request)
{
    record((request.background ? "render bg " : "render fg ") + request.screen);
    m_requests.append(request);
    if (m_autoAnswer)
        answer(m_autoAnswer(request));
}

void CFakeEmulator::stop()
{
    record(QStringLiteral("emu stop"));
    m_requests.clear();
}

// The library's functions; no library that is linked after this file is asked for them.
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
        request.screen = nameOf(iterator->current());
    for (iterator->next(); iterator->current(); iterator->next())
        request.items.append(nameOf(iterator->current()));
    CFakeEmulator::instance().take(request);
    return 1;
}

int Emu_Stop()
{
    CFakeEmulator::instance().stop();
    return 1;
}
