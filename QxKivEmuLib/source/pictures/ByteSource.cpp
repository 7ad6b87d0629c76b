#include "ByteSource.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace kivemu {

static constexpr size_t PieceBytes = 32768;

size_t CMemorySource::read(uint8_t *target, size_t count) noexcept
{
    const size_t taken = std::min(count, m_count);
    std::copy_n(m_bytes, taken, target);
    m_bytes += taken;
    m_count -= taken;
    return taken;
}

void CMemorySource::skip(size_t count) noexcept
{
    const size_t taken = std::min(count, m_count);
    m_bytes += taken;
    m_count -= taken;
}

CFileSource::~CFileSource()
{
    if (m_descriptor >= 0)
        close(m_descriptor);
}

std::string CFileSource::open(const std::string &path)
{
    if (path.find('\0') != std::string::npos)
        return "a path cannot hold zero bytes";
    m_descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
    struct stat status = {};
    if (m_descriptor < 0 || fstat(m_descriptor, &status) != 0)
        return path + ": " + std::strerror(errno);
    if (!S_ISREG(status.st_mode))
        return path + ": is not a regular file";
    m_size = static_cast<uint64_t>(status.st_size);
    m_piece.resize(PieceBytes);
    return {};
}

bool CFileSource::fill() noexcept
{
    ssize_t count = -1;
    do
        count = ::read(m_descriptor, m_piece.data(), m_piece.size());
    while (count < 0 && errno == EINTR);
    if (count < 0)
        m_error = errno;
    m_at = 0;
    m_filled = count > 0 ? static_cast<size_t>(count) : 0;
    return m_filled > 0;
}

size_t CFileSource::read(uint8_t *target, size_t count) noexcept
{
    size_t done = 0;
    while (done < count && (m_at < m_filled || fill())) {
        const size_t part = std::min(count - done, m_filled - m_at);
        std::copy_n(m_piece.data() + m_at, part, target + done);
        m_at += part;
        done += part;
    }
    m_bytesRead += done;
    return done;
}

void CFileSource::skip(size_t count) noexcept
{
    const size_t there = std::min(count, m_filled - m_at);
    m_at += there;
    if (count > there && lseek(m_descriptor, static_cast<off_t>(count - there), SEEK_CUR) < 0)
        m_error = errno;
}

} // namespace kivemu
