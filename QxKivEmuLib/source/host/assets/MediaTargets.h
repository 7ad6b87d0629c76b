#pragma once

#include "ImageFile.h"
#include "pictures/PictureReading.h"

namespace kivemu {

/// Packs the pixels of a picture into a format of the chip while they are read.
class CMediaTarget : public IPictureTarget
{
public:
    CMediaTarget(bool mono, size_t budget, SDecodedImage &image);
    std::string begin(const SPictureHead &head) override;

protected:
    /// Room for rows as they are read, four bytes a pixel at most.
    virtual size_t rowsToKeep() const = 0;
    size_t sourceRow() const { return static_cast<size_t>(m_image.width) * 4; }
    void pack(const uint8_t *samples, int y);

    const bool m_mono;
    SDecodedImage &m_image;
    std::vector<uint8_t> m_samples;

private:
    const size_t m_budget;
};

class CJpegTarget final : public CMediaTarget
{
public:
    using CMediaTarget::CMediaTarget;
    std::string begin(const SPictureHead &head) override;
    uint8_t *row(int) noexcept override { return m_samples.data(); }
    void finishRow(int y) noexcept override { pack(m_samples.data(), y); }

private:
    size_t rowsToKeep() const override { return 1; }
};

/// Translucent pixels are laid over black, as the chip blends.
class CPngTarget final : public CMediaTarget
{
public:
    using CMediaTarget::CMediaTarget;
    uint8_t *row(int y) noexcept override
    {
        return m_samples.data() + static_cast<size_t>(y) * sourceRow();
    }
    void packRows(); ///< when the last interlaced row is there

private:
    size_t rowsToKeep() const override { return static_cast<size_t>(m_image.height); }
};

} // namespace kivemu
