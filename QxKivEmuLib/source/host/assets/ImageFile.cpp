#include "ImageFile.h"

#include "MediaTargets.h"
#include "pictures/CAviReader.h"
#include "pictures/FileReading.h"

#include <algorithm>
#include <cctype>
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

std::string decode(EImageFile kind, IByteSource &source, bool mono, size_t budget,
                   SDecodedImage &image)
{
    if (kind == EImageFile::Jpeg) {
        CJpegTarget target(mono, budget, image);
        return readJpeg(source, mono ? EJpegRows::Grey : EJpegRows::Colours, target);
    }
    CPngTarget target(mono, budget, image);
    const std::string problem = readPng(source, EPngRows::Colours, target);
    if (problem.empty())
        target.packRows();
    return problem;
}

} // namespace

std::string decodeImage(EImageFile kind, const uint8_t *bytes, size_t count, bool mono,
                        size_t budget, SDecodedImage &image)
{
    image = {};
    if (kind != EImageFile::Avi) {
        CMemorySource source(bytes, count);
        return decode(kind, source, mono, budget, image);
    }
    CAviReader avi(bytes, count);
    if (!avi.findFirstFrame())
        return avi.error();
    CMemorySource frame(avi.frame(), avi.frameSize());
    return decode(EImageFile::Jpeg, frame, mono, budget, image);
}

std::string decodeImageFile(const std::string &path, bool mono, size_t budget, SDecodedImage &image)
{
    const std::optional<EImageFile> kind = kindOf(path);
    if (!kind)
        return path + ": is not named as a JPEG, PNG or AVI file";
    std::string problem;
    if (*kind == EImageFile::Avi) {
        std::vector<uint8_t> bytes;
        problem = readFileStart(path, VideoStart, bytes);
        if (!problem.empty())
            return problem;
        problem = decodeImage(*kind, bytes.data(), bytes.size(), mono, budget, image);
        image.fileBytes = bytes.size();
    } else {
        CFileSource file;
        problem = file.open(path);
        if (!problem.empty())
            return problem;
        if (file.size() > MaxFile)
            return path + ": is larger than " + std::to_string(MaxFile) + " bytes";
        image = {};
        problem = decode(*kind, file, mono, budget, image);
        image.fileBytes = file.bytesRead();
    }
    return problem.empty() ? problem : path + ": " + problem;
}

} // namespace kivemu
