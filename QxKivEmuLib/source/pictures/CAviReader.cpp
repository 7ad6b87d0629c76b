#include "CAviReader.h"

#include <algorithm>

namespace kivemu {

namespace {

constexpr uint32_t code(const char (&text)[5])
{
    return static_cast<uint32_t>(static_cast<uint8_t>(text[0])) |
           static_cast<uint32_t>(static_cast<uint8_t>(text[1])) << 8 |
           static_cast<uint32_t>(static_cast<uint8_t>(text[2])) << 16 |
           static_cast<uint32_t>(static_cast<uint8_t>(text[3])) << 24;
}

constexpr size_t HeaderSize = 8; ///< of a chunk: its id and the size of its contents
constexpr size_t TypeSize = 4;   ///< of a list, at the start of its contents
constexpr int DeepestList = 4;
constexpr size_t FrameSizeAt = 32; ///< in the main header: width, then height

} // namespace

uint32_t CAviReader::word(size_t at) const
{
    return static_cast<uint32_t>(m_bytes[at]) | static_cast<uint32_t>(m_bytes[at + 1]) << 8 |
           static_cast<uint32_t>(m_bytes[at + 2]) << 16 |
           static_cast<uint32_t>(m_bytes[at + 3]) << 24;
}

bool CAviReader::fail(const char *message)
{
    m_error = message;
    return false;
}

/// The chunk at `at`, its contents cut to what lies before `end`; moves `at` behind it, so that a
/// walk always gets on.
bool CAviReader::readChunk(size_t &at, size_t end, SChunk &chunk) const
{
    if (end - at < HeaderSize)
        return false;
    chunk.id = word(at);
    chunk.at = at + HeaderSize;
    chunk.size = std::min<size_t>(word(at + 4), end - chunk.at);
    at = chunk.at + chunk.size;
    if (chunk.size % 2 != 0 && at < end)
        ++at; // chunks start at even places
    return true;
}

bool CAviReader::isAvi() const
{
    return m_count >= HeaderSize + TypeSize && word(0) == code("RIFF") && word(8) == code("AVI ");
}

bool CAviReader::isList(const SChunk &chunk, uint32_t type) const
{
    return chunk.id == code("LIST") && chunk.size >= TypeSize && word(chunk.at) == type;
}

bool CAviReader::readFrameSize(uint32_t &width, uint32_t &height) const
{
    if (!isAvi())
        return false;
    size_t at = HeaderSize + TypeSize;
    size_t end = m_count;
    bool isInHeader = false;
    for (SChunk chunk{}; readChunk(at, end, chunk);) {
        if (!isInHeader && isList(chunk, code("hdrl"))) {
            at = chunk.at + TypeSize; // on within the list
            end = chunk.at + chunk.size;
            isInHeader = true;
        } else if (isInHeader && chunk.id == code("avih") && chunk.size >= FrameSizeAt + 8) {
            width = word(chunk.at + FrameSizeAt);
            height = word(chunk.at + FrameSizeAt + 4);
            return true;
        }
    }
    return false;
}

bool CAviReader::findFirstFrame()
{
    if (!isAvi())
        return fail("is not an AVI file");
    size_t at = HeaderSize + TypeSize;
    for (SChunk chunk{}; readChunk(at, m_count, chunk);) {
        if (isList(chunk, code("movi")))
            return searchMovie(chunk.at + TypeSize, chunk.at + chunk.size, 0) ||
                   fail("has no JPEG frame");
    }
    return fail("has no frames");
}

bool CAviReader::searchMovie(size_t at, size_t end, int depth)
{
    for (SChunk chunk{}; readChunk(at, end, chunk);) {
        const bool isList = chunk.id == code("LIST") && chunk.size >= TypeSize;
        if (isList && depth < DeepestList &&
            searchMovie(chunk.at + TypeSize, chunk.at + chunk.size, depth + 1))
            return true;
        if (isList || !isJpeg(chunk))
            continue;
        m_frameAt = chunk.at;
        m_frameSize = chunk.size;
        return true;
    }
    return false;
}

/// Video chunks are named "00dc" or "00db", the digits being the stream's.
bool CAviReader::isJpeg(const SChunk &chunk) const
{
    const uint32_t kind = chunk.id >> 16;
    const bool isVideo = kind == ('d' | 'c' << 8) || kind == ('d' | 'b' << 8);
    return isVideo && chunk.size >= 4 && m_bytes[chunk.at] == 0xFF && m_bytes[chunk.at + 1] == 0xD8;
}

} // namespace kivemu
