#pragma once

#include <QtGlobal>

class QIODevice;
class QString;

/// Reads the frame size of an AVI video: RIFF "AVI ", in it LIST "hdrl", in it "avih".
/// What the file says of its sizes is believed only as far as the chunk around goes, and only a
/// limited number of chunks is looked at: a lying file costs neither time nor memory.
class CAviReader
{
public:
    static constexpr int MaxChunks = 10000; ///< looked at on each level

    /// False when the file is no regular one, cannot be read, lacks one of the chunks, or has an
    /// "avih" of less than 40 bytes; `width` and `height` are then unchanged. The numbers are what
    /// the file says, which may be anything.
    static bool frameSize(const QString &file, quint32 &width, quint32 &height);
    /// The same from an open device with random access.
    static bool frameSize(QIODevice &device, quint32 &width, quint32 &height);
};
