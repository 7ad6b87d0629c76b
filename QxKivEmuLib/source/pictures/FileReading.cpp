#include "FileReading.h"

#include "ByteSource.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <sys/stat.h>

namespace kivemu {

namespace {

std::string reason(const std::string &path, int error)
{
    return path + ": " + std::strerror(error);
}

enum class ELarger { IsError, IsCut };

std::string readFile(const std::string &path, size_t limit, ELarger larger,
                     std::vector<uint8_t> &bytes)
{
    bytes.clear();
    CFileSource file;
    const std::string problem = file.open(path);
    if (!problem.empty())
        return problem;
    if (file.size() > limit && larger == ELarger::IsError)
        return path + ": is larger than " + std::to_string(limit) + " bytes";
    bytes.resize(static_cast<size_t>(std::min<uint64_t>(file.size(), limit)));
    bytes.resize(file.read(bytes.data(), bytes.size())); // the file may have been cut meanwhile
    return file.error() ? reason(path, file.error()) : std::string();
}

} // namespace

std::string stampOfFile(const std::string &path, SFileStamp &stamp)
{
    struct stat status = {};
    if (path.find('\0') != std::string::npos)
        return "a path cannot hold zero bytes";
    if (stat(path.c_str(), &status) != 0)
        return reason(path, errno);
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
