#include "png_io.h"

#include <png.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

namespace qtzq_tools {

bool write_png(const std::string& path, const BgraImage& image, std::string& error) {
    std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "wb"),
                                                          std::fclose);
    if (!file) {
        error = path + ": cannot create file (" + std::strerror(errno) + ")";
        return false;
    }
    png_image png;
    std::memset(&png, 0, sizeof png);
    png.version = PNG_IMAGE_VERSION;
    png.width = static_cast<png_uint_32>(image.width);
    png.height = static_cast<png_uint_32>(image.height);
    png.format = PNG_FORMAT_BGRA;
    if (!png_image_write_to_stdio(&png, file.get(), 0, image.pixels.data(), 0, nullptr)) {
        error = path + ": cannot write PNG (" + png.message + ")";
        return false;
    }
    return true;
}

}  // namespace qtzq_tools
