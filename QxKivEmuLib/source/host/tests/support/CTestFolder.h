#pragma once

#include <cstdint>
#include <string>
#include <vector>

/// A folder of its own for one test, removed with all its files at the end.
class CTestFolder
{
public:
    CTestFolder();
    ~CTestFolder();
    CTestFolder(const CTestFolder &) = delete;
    CTestFolder &operator=(const CTestFolder &) = delete;

    const std::string &path() const { return m_path; }
    void write(const std::string &name, const std::vector<uint8_t> &bytes) const;
    /// Sets the time of the last change.
    void touch(const std::string &name, int64_t seconds) const;

private:
    std::string m_path;
};

/// Pictures of a single colour, as files.
std::vector<uint8_t> makePng(uint32_t width, uint32_t height, uint32_t colour);
std::vector<uint8_t> makeJpeg(uint32_t width, uint32_t height, uint32_t colour);
