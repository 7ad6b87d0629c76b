#include "CTestFolder.h"

#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <jpeglib.h>
#include <png.h>
#include <sys/stat.h>

CTestFolder::CTestFolder()
{
    std::string name = (std::filesystem::temp_directory_path() / "kivtestXXXXXX").string();
    if (!mkdtemp(name.data()))
        std::abort();
    m_path = name;
}

CTestFolder::~CTestFolder()
{
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
}

void CTestFolder::write(const std::string &name, const std::vector<uint8_t> &bytes) const
{
    std::ofstream file(m_path + '/' + name, std::ios::binary | std::ios::trunc);
    file.write(reinterpret_cast<const char *>(bytes.data()),
               static_cast<std::streamsize>(bytes.size()));
}

void CTestFolder::touch(const std::string &name, int64_t seconds) const
{
    const timespec times[2] = {{seconds, 0}, {seconds, 0}};
    utimensat(AT_FDCWD, (m_path + '/' + name).c_str(), times, 0);
}

namespace {

std::vector<uint8_t> rgbRow(uint32_t width, uint32_t colour)
{
    std::vector<uint8_t> row;
    for (uint32_t x = 0; x < width; ++x) {
        for (const int shift : {16, 8, 0})
            row.push_back(static_cast<uint8_t>(colour >> shift));
    }
    return row;
}

} // namespace

std::vector<uint8_t> makePng(uint32_t width, uint32_t height, uint32_t colour)
{
    const std::vector<uint8_t> row = rgbRow(width, colour);
    std::vector<uint8_t> pixels;
    for (uint32_t y = 0; y < height; ++y)
        pixels.insert(pixels.end(), row.begin(), row.end());
    png_image image = {};
    image.version = PNG_IMAGE_VERSION;
    image.width = width;
    image.height = height;
    image.format = PNG_FORMAT_RGB;
    png_alloc_size_t size = 0;
    png_image_write_to_memory(&image, nullptr, &size, 0, pixels.data(), 0, nullptr);
    std::vector<uint8_t> bytes(size);
    png_image_write_to_memory(&image, bytes.data(), &size, 0, pixels.data(), 0, nullptr);
    bytes.resize(size);
    return bytes;
}

std::vector<uint8_t> makeJpeg(uint32_t width, uint32_t height, uint32_t colour)
{
    jpeg_compress_struct jpeg = {};
    jpeg_error_mgr errors = {};
    jpeg.err = jpeg_std_error(&errors);
    jpeg_create_compress(&jpeg);
    unsigned char *bytes = nullptr;
    unsigned long size = 0;
    jpeg_mem_dest(&jpeg, &bytes, &size);
    jpeg.image_width = width;
    jpeg.image_height = height;
    jpeg.input_components = 3;
    jpeg.in_color_space = JCS_RGB;
    jpeg_set_defaults(&jpeg);
    jpeg_set_quality(&jpeg, 95, TRUE);
    jpeg_start_compress(&jpeg, TRUE);
    std::vector<uint8_t> row = rgbRow(width, colour);
    for (uint32_t y = 0; y < height; ++y) {
        JSAMPROW rows[1] = {row.data()};
        jpeg_write_scanlines(&jpeg, rows, 1);
    }
    jpeg_finish_compress(&jpeg);
    std::vector<uint8_t> result(bytes, bytes + size);
    jpeg_destroy_compress(&jpeg);
    std::free(bytes);
    return result;
}
