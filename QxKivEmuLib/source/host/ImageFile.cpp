#include "ImageFile.h"

#include "CAviReader.h"
#include "FileReading.h"
#include "ImageDecoders.h"

#include <algorithm>
#include <cctype>
#include <cstring>
#include <optional>

namespace kivemu {

namespace {

constexpr size_t MaxFile = size_t{64} << 20;    ///< bytes of a picture's file
constexpr size_t VideoStart = size_t{16} << 20; ///< bytes of a video, where its first frame lies

std::optional<EImageFile> kindOf(const std::string &path)
{
    const size_t dot = path.find_last_of("./");
    if (dot == std::string::npos || path[dot] != '.')
        return std::nullopt;
    std::string suffix = path.substr(dot + 1);
    std::transform(suffix.begin(), suffix.end(), suffix.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    if (suffix == "jpg" || suffix == "jpeg")
        return EImageFile::Jpeg;
    if (suffix == "png")
        return EImageFile::Png;
    return suffix == "avi" ? std::optional(EImageFile::Avi) : std::nullopt;
}

bool startsWith(const uint8_t *bytes, size_t count, const char *signature, size_t length)
{
    return count >= length && std::memcmp(bytes, signature, length) == 0;
}

} // namespace

std::string takeImageSize(uint64_t width, uint64_t height, bool mono, size_t budget,
                          SDecodedImage &image)
{
    image.neededBytes = width * height * (mono ? 1 : 2);
    const std::string size = std::to_string(width) + " x " + std::to_string(height);
    if (width < 1 || height < 1 || width > MaxImageSide || height > MaxImageSide)
        return "a picture of " + size + " pixels is larger than " + std::to_string(MaxImageSide) +
               " x " + std::to_string(MaxImageSide);
    if (image.neededBytes > budget)
        return "a picture of " + size + " pixels does not fit into " + std::to_string(budget) +
               " bytes";
    image.width = static_cast<int>(width);
    image.height = static_cast<int>(height);
    return {};
}

std::string decodeImage(EImageFile kind, const uint8_t *bytes, size_t count, bool mono,
                        size_t budget, SDecodedImage &image)
{
    image = {};
    if (kind == EImageFile::Avi) {
        CAviReader avi(bytes, count);
        if (!avi.findFirstFrame())
            return avi.error();
        return decodeJpeg(avi.frame(), avi.frameSize(), mono, budget, image);
    }
    if (kind == EImageFile::Jpeg) {
        if (!startsWith(bytes, count, "\xFF\xD8\xFF", 3))
            return "is not a JPEG file";
        return decodeJpeg(bytes, count, mono, budget, image);
    }
    if (!startsWith(bytes, count, "\x89PNG\r\n\x1A\n", 8))
        return "is not a PNG file";
    return decodePng(bytes, count, mono, budget, image);
}

std::string decodeImageFile(const std::string &path, bool mono, size_t budget, SDecodedImage &image)
{
    const std::optional<EImageFile> kind = kindOf(path);
    if (!kind)
        return path + ": is not named as a JPEG, PNG or AVI file";
    std::vector<uint8_t> bytes;
    std::string problem = *kind == EImageFile::Avi ? readFileStart(path, VideoStart, bytes)
                                                   : readRegularFile(path, MaxFile, bytes);
    if (!problem.empty())
        return problem;
    problem = decodeImage(*kind, bytes.data(), bytes.size(), mono, budget, image);
    return problem.empty() ? problem : path + ": " + problem;
}

} // namespace kivemu
