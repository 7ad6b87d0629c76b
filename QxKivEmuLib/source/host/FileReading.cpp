#include "FileReading.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace kivemu {

namespace {

class CDescriptor
{
public:
    explicit CDescriptor(int descriptor) : m_descriptor(descriptor) {}
    ~CDescriptor()
    {
        if (m_descriptor >= 0)
            close(m_descriptor);
    }
    CDescriptor(const CDescriptor &) = delete;
    CDescriptor &operator=(const CDescriptor &) = delete;
    int get() const { return m_descriptor; }

private:
    int m_descriptor;
};

std::string reason(const std::string &path)
{
    return path + ": " + std::strerror(errno);
}

std::string readAll(int descriptor, const std::string &path, std::vector<uint8_t> &bytes)
{
    size_t filled = 0;
    while (filled < bytes.size()) {
        const ssize_t count = read(descriptor, bytes.data() + filled, bytes.size() - filled);
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return reason(path);
        if (count == 0)
            break;
        filled += static_cast<size_t>(count);
    }
    bytes.resize(filled); // the file may have been cut meanwhile
    return {};
}

enum class ELarger { IsError, IsCut };

std::string readFile(const std::string &path, size_t limit, ELarger larger,
                     std::vector<uint8_t> &bytes)
{
    bytes.clear();
    if (path.find('\0') != std::string::npos)
        return "a path cannot hold zero bytes";
    const CDescriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    struct stat status = {};
    if (file.get() < 0 || fstat(file.get(), &status) != 0)
        return reason(path);
    if (!S_ISREG(status.st_mode))
        return path + ": is not a regular file";
    const auto size = static_cast<uint64_t>(status.st_size);
    if (size > limit && larger == ELarger::IsError)
        return path + ": is larger than " + std::to_string(limit) + " bytes";
    bytes.resize(static_cast<size_t>(std::min<uint64_t>(size, limit)));
    return readAll(file.get(), path, bytes);
}

} // namespace

std::string stampOfFile(const std::string &path, SFileStamp &stamp)
{
    struct stat status = {};
    if (path.find('\0') != std::string::npos)
        return "a path cannot hold zero bytes";
    if (stat(path.c_str(), &status) != 0)
        return reason(path);
    if (!S_ISREG(status.st_mode))
        return path + ": is not a regular file";
    stamp = {status.st_dev, status.st_ino, static_cast<uint64_t>(status.st_size),
             status.st_mtim.tv_sec, status.st_mtim.tv_nsec};
    return {};
}

std::string readRegularFile(const std::string &path, size_t limit, std::vector<uint8_t> &bytes)
{
    return readFile(path, limit, ELarger::IsError, bytes);
}

std::string readFileStart(const std::string &path, size_t most, std::vector<uint8_t> &bytes)
{
    return readFile(path, most, ELarger::IsCut, bytes);
}

} // namespace kivemu
