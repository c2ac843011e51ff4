#include "qtzq_app/png_io.h"

#include <png.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

#include "qtzq_app/file_bytes.h"
#include "qtzq_app/image_limits.h"

namespace qtzq_app {
namespace {

// Frees the reader's state on every path.
struct PngImage {
    png_image image;
    PngImage() {
        std::memset(&image, 0, sizeof image);
        image.version = PNG_IMAGE_VERSION;
    }
    ~PngImage() { png_image_free(&image); }
    PngImage(const PngImage&) = delete;
    PngImage& operator=(const PngImage&) = delete;
};

}  // namespace

bool looks_like_png(const unsigned char* bytes, std::size_t size) {
    return size >= 8 && png_sig_cmp(bytes, 0, 8) == 0;
}

bool read_png_memory(const unsigned char* bytes, std::size_t size, const std::string& name,
                     BgraImage& image, std::string& error) {
    if (!looks_like_png(bytes, size)) {
        error = name + ": not a PNG file";
        return false;
    }
    PngImage png;
    if (!png_image_begin_read_from_memory(&png.image, bytes, size)) {
        error = name + ": corrupt PNG (" + png.image.message + ")";
        return false;
    }
    if (!image_size_supported(png.image.width, png.image.height)) {
        error = name + ": image of " + size_text(png.image.width, png.image.height) +
                " pixels is too large";
        return false;
    }
    // 8-bit BGRA, alpha kept (opaque when the file has none).
    png.image.format = PNG_FORMAT_BGRA;
    BgraImage decoded(int(png.image.width), int(png.image.height));
    if (!png_image_finish_read(&png.image, nullptr, decoded.data(), 0, nullptr)) {
        error = name + ": corrupt PNG (" + png.image.message + ")";
        return false;
    }
    image = std::move(decoded);
    return true;
}

bool read_png(const std::string& path, BgraImage& image, std::string& error) {
    std::vector<unsigned char> bytes;
    if (!read_file_bytes(path, bytes, error)) return false;
    return read_png_memory(bytes.data(), bytes.size(), path, image, error);
}

bool write_png(const std::string& path, const BgraImage& image, std::string& error) {
    std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "wb"),
                                                          std::fclose);
    if (!file) {
        error = path + ": cannot create file (" + std::strerror(errno) + ")";
        return false;
    }
    PngImage png;
    png.image.width = static_cast<png_uint_32>(image.width);
    png.image.height = static_cast<png_uint_32>(image.height);
    png.image.format = PNG_FORMAT_BGRA;
    if (!png_image_write_to_stdio(&png.image, file.get(), 0, image.pixels.data(), 0, nullptr)) {
        error = path + ": cannot write PNG (" + png.image.message + ")";
        return false;
    }
    if (std::fflush(file.get()) != 0) {
        error = path + ": cannot write PNG (" + std::strerror(errno) + ")";
        return false;
    }
    return true;
}

}  // namespace qtzq_app
