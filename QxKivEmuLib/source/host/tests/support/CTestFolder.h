#pragma once

#include <cstdint>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <string>
#include <sys/stat.h>
#include <vector>

/// A folder of its own for one test, removed with all its files at the end.
class CTestFolder
{
public:
    CTestFolder() : m_path((std::filesystem::temp_directory_path() / "kivtestXXXXXX").string())
    {
        if (!mkdtemp(m_path.data()))
            std::abort();
    }
    ~CTestFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    CTestFolder(const CTestFolder &) = delete;
    CTestFolder &operator=(const CTestFolder &) = delete;

    const std::string &path() const { return m_path; }
    void write(const std::string &name, const std::vector<uint8_t> &bytes) const
    {
        std::ofstream file(m_path + '/' + name, std::ios::binary | std::ios::trunc);
        file.write(reinterpret_cast<const char *>(bytes.data()),
                   static_cast<std::streamsize>(bytes.size()));
    }
    /// Sets the time of the last change.
    void touch(const std::string &name, int64_t seconds) const
    {
        const timespec times[2] = {{seconds, 0}, {seconds, 0}};
        utimensat(AT_FDCWD, (m_path + '/' + name).c_str(), times, 0);
    }

private:
    std::string m_path;
};
