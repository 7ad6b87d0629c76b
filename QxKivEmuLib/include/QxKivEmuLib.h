#pragma once

#include <cstddef>
#include <cstdint>

class IModelIterator;

#if defined(_WIN32)
#if defined(QXKIVEMULIB_BUILD)
#define QXKIVEMULIB_API __declspec(dllexport)
#else
#define QXKIVEMULIB_API __declspec(dllimport)
#endif
#else
#define QXKIVEMULIB_API __attribute__((visibility("default")))
#endif

#if defined(QXKIVEMULIB_BUILD) || defined(_WIN32)
#define QXKIVEMULIB_OPTIONAL QXKIVEMULIB_API
#else
#define QXKIVEMULIB_OPTIONAL QXKIVEMULIB_API __attribute__((weak))
#endif

/// One pixel: 0xAARRGGBB in host byte order.
using argb8888 = uint32_t;

/// Part of the error message of an item or a frame that the clock has stopped. Everything else that
/// ends a script early depends on the input alone; such a frame may get further another time.
#define EMU_STOPPED_BY_CLOCK "stopped by the clock"

/// Takes a frame.
/// output         true for a frame that is meant to be shown (a foreground request).
/// buffer         hsize * vsize pixels, rows packed, top row first; valid during the call.
/// observer       the pointer that was given to Emu_RenderObjects.
/// flags          bit 0: the frame is complete; it ends its request.
/// RAM_DL_Usage   bytes of display-list memory that the whole screen needs; when it is more than
/// the
///                chip has, the list that came before was cut and an error said so.
/// The result is not looked at.
using EmuFrameCallback = int (*)(bool output, const argb8888 *buffer, uint32_t hsize,
                                 uint32_t vsize, void *observer, uint32_t flags,
                                 size_t RAM_DL_Usage);

/// Takes the display list of the request whose complete frame follows.
/// dlTextBuffer   one line of commands, each ended by ";"; zero-terminated.
/// dlBinBuffer    dlBinSize bytes: little-endian 32-bit words, as they go into RAM_DL.
/// RAM_G_Usage    bytes of graphics memory that the screen's assets need; when it is more than the
///                chip has, an error names what was left out.
/// errorMessages  one message a line, empty when all went well; zero-terminated.
/// All pointers are valid during the call only. The result is not looked at.
using EmuDisplayListCallback = int (*)(const char *dlTextBuffer, const unsigned char *dlBinBuffer,
                                       int dlBinSize, size_t RAM_G_Usage, char *errorMessages);

/// Format of an asset that is no bitmap but the font block that FONT names. Its width is the number
/// of its glyphs, its height 1. Its stride is the font's handle times 32768, and added how far the
/// glyphs are turned, in 1/64 degree: blocks with the same number may be put together.
#define EMU_ASSET_FONT 0x10000U

/// One bitmap, picture or font that lies in graphics memory, as the chip reads it.
struct EmuAsset
{
    const char *file; ///< what it was read from, in the local 8-bit encoding; zero-terminated
    uint32_t format;  ///< code of the bitmap format, as in the display list; or EMU_ASSET_FONT
    uint32_t width;   ///< texels
    uint32_t height;  ///< texels
    uint32_t stride;  ///< bytes from row to row
    uint32_t address; ///< of the texels, or of the font block
    uint32_t bytes;   ///< of the same
    uint32_t paletteAddress; ///< 0 for formats without a palette, as the next
    uint32_t paletteBytes;
};

/// Takes the graphics memory of the request whose display list follows.
/// memory  `size` bytes from address 0 on, as the display list's addresses mean them.
/// assets  what lies there, `assetCount` of them, by ascending addresses.
/// All pointers are valid during the call only. The result is not looked at.
using EmuMemoryCallback = int (*)(const unsigned char *memory, size_t size, const EmuAsset *assets,
                                  size_t assetCount);

/// Takes what the request whose display list follows could not show of its texts.
/// items   ids of the items that have less room than one of their texts needs, which was cut for
///         that; `count` of them, each once, in the order in which they are drawn.
/// The pointer is valid during the call only. The result is not looked at.
using EmuCutTextsCallback = int (*)(const uint32_t *items, size_t count);

// All functions may be called from one thread (the "caller's thread"); callbacks arrive on worker
// threads of the library, one callback at a time and in the order of the requests, the callbacks of
// one request from one thread. A callback may call Emu_RenderObjects, but not Emu_Stop.
// The results are 1 for success and 0 for failure; a caller may ignore them, because what concerns
// a frame arrives as error text with its display list.
extern "C" {

/// Sets the two callbacks for all requests from now on. Either may be null.
QXKIVEMULIB_API int Emu_Register(EmuFrameCallback frame, EmuDisplayListCallback displayList);

/// Starts the emulator with a render script (path in the local 8-bit encoding) for one chip
/// (0x100, 0x101, 0x110 .. 0x113), which decides the sizes of RAM_G and RAM_DL and the largest
/// screen. Starting a started emulator stops it first.
QXKIVEMULIB_API int Emu_Start(const char *scriptPath, uint32_t chipCode);

/// Sets the frame size in pixels for all requests from now on. A size over the chip's largest
/// screen is cut to it and reported with each frame.
QXKIVEMULIB_API int Emu_ConfigScreen(uint32_t width, uint32_t height);

/// Asks for one frame. Everything is read through the iterator before the call returns, and no
/// pointer to the model is kept. The answer is always both callbacks, display list first, complete
/// frame last, also when the script fails or the emulator is not started.
/// background     0 for a frame to be shown, 1 for one whose display list is wanted.
QXKIVEMULIB_API int Emu_RenderObjects(IModelIterator *iterator, void *observer,
                                      uint32_t background);

/// Stops the emulator: requests not yet answered are dropped, also those whose frames are being
/// made, and nothing calls back after the return. Waits until the workers are idle, but not much
/// longer than 0.4 s: one that hangs then, in a file of a disk that does not answer for instance,
/// is left behind. The result is 0 then; end the process by _exit() when it is to end, since the
/// worker may come back while what it uses is taken down.
QXKIVEMULIB_API int Emu_Stop();

/// Sets the callback that is told the graphics memory, before the display list's, for all requests
/// from now on. May be null, as it is at the start.
/// Optional: a library that takes this one's place need not have it. A caller that links it weakly
/// finds a null function then, and does without what only the memory tells.
QXKIVEMULIB_OPTIONAL int Emu_RegisterMemory(EmuMemoryCallback memory);

/// Sets the callback that is told the cut texts, before the display list's, for all requests from
/// now on. May be null, as it is at the start. Optional, as the function before.
QXKIVEMULIB_OPTIONAL int Emu_RegisterCutTexts(EmuCutTextsCallback texts);

/// How many requests the library works on at once, a worker each. Whoever has more than one of them
/// under way uses that many cores; the answers come in the order of the requests all the same, and
/// are the same bytes. Optional, as the function before.
QXKIVEMULIB_OPTIONAL uint32_t Emu_RequestsAtOnce();
}
