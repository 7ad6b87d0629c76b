#include "QxKivEmuLib.h"

#include "CEmulator.h"

using kivemu::CEmulator;

namespace {

/// Nothing may leave a C function by an exception.
template<typename Operation>
int guarded(Operation operation)
{
    try {
        return operation() ? 1 : 0;
    } catch (...) {
        return 0;
    }
}

} // namespace

int Emu_Register(EmuFrameCallback frame, EmuDisplayListCallback displayList)
{
    return guarded([&] {
        CEmulator::instance().setCallbacks(frame, displayList);
        return true;
    });
}

int Emu_RegisterMemory(EmuMemoryCallback memory)
{
    return guarded([&] {
        CEmulator::instance().setMemoryCallback(memory);
        return true;
    });
}

int Emu_RegisterCutTexts(EmuCutTextsCallback texts)
{
    return guarded([&] {
        CEmulator::instance().setCutTextsCallback(texts);
        return true;
    });
}

int Emu_Start(const char *scriptPath, uint32_t chipCode)
{
    return guarded(
        [&] { return CEmulator::instance().start(scriptPath ? scriptPath : "", chipCode); });
}

int Emu_ConfigScreen(uint32_t width, uint32_t height)
{
    return guarded([&] {
        CEmulator::instance().configure(width, height);
        return true;
    });
}

int Emu_RenderObjects(IModelIterator *iterator, void *observer, uint32_t background)
{
    return guarded([&] {
        CEmulator::instance().render(iterator, observer, background == 0);
        return true;
    });
}

int Emu_Stop()
{
    return guarded([] { return CEmulator::instance().stop(); });
}

uint32_t Emu_RequestsAtOnce()
{
    return static_cast<uint32_t>(CEmulator::instance().mostWorkers());
}
