#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace kivemu {

/// Bytes in a row, read once.
class IByteSource
{
public:
    virtual ~IByteSource() = default;
    /// Gives how many bytes were read: fewer than `count` only at the end. Never throws, since
    /// decoders in C call it.
    virtual size_t read(uint8_t *target, size_t count) noexcept = 0;
    /// Passes over bytes; what lies behind the end does not matter.
    virtual void skip(size_t count) noexcept = 0;
};

/// Bytes in memory, not owned.
class CMemorySource final : public IByteSource
{
public:
    CMemorySource(const uint8_t *bytes, size_t count) : m_bytes(bytes), m_count(count) {}
    size_t read(uint8_t *target, size_t count) noexcept override;
    void skip(size_t count) noexcept override;

private:
    const uint8_t *m_bytes;
    size_t m_count;
};

/// A regular file, of which only a small piece is in memory. Pipes and devices, which could block
/// or never end, are refused, also when they take the place of a file in between.
class CFileSource final : public IByteSource
{
public:
    CFileSource() = default;
    ~CFileSource() override;
    CFileSource(const CFileSource &) = delete;
    CFileSource &operator=(const CFileSource &) = delete;

    /// Gives the reason when it fails, otherwise an empty text.
    std::string open(const std::string &path);
    uint64_t size() const { return m_size; } ///< when it was opened
    size_t read(uint8_t *target, size_t count) noexcept override;
    void skip(size_t count) noexcept override; ///< without reading them
    uint64_t bytesRead() const { return m_bytesRead; }
    int error() const { return m_error; } ///< why reading ended, as in errno; 0: at the end

private:
    bool fill() noexcept;

    int m_descriptor = -1;
    int m_error = 0;
    uint64_t m_size = 0;
    std::vector<uint8_t> m_piece;
    size_t m_at = 0;     ///< in the piece
    size_t m_filled = 0; ///< bytes of the piece
    uint64_t m_bytesRead = 0;
};

} // namespace kivemu
