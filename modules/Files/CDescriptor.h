#pragma once

#include <unistd.h>
#include <utility>

/// Owns a file descriptor; a negative one is none.
class CDescriptor
{
public:
    explicit CDescriptor(int descriptor = -1) : m_descriptor(descriptor) {}
    CDescriptor(CDescriptor &&other) noexcept : m_descriptor(std::exchange(other.m_descriptor, -1))
    {
    }
    CDescriptor &operator=(CDescriptor &&other) noexcept
    {
        std::swap(m_descriptor, other.m_descriptor);
        return *this;
    }
    ~CDescriptor()
    {
        if (m_descriptor >= 0)
            close(m_descriptor);
    }

    bool isOpen() const { return m_descriptor >= 0; }
    int get() const { return m_descriptor; }
    /// Gives it away.
    int take() { return std::exchange(m_descriptor, -1); }

private:
    int m_descriptor;
};
