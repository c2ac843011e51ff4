#include "qtzq_app/image_file.h"

#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cctype>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <vector>

#include "qtzq_app/file_bytes.h"
#include "jpeg_io.h"

namespace qtzq_app {
namespace {

std::string lower_extension(const std::string& path) {
    const std::size_t slash = path.find_last_of('/');
    const std::size_t dot = path.find_last_of('.');
    if (dot == std::string::npos || (slash != std::string::npos && dot < slash)) return "";
    std::string ext = path.substr(dot + 1);
    std::transform(ext.begin(), ext.end(), ext.begin(),
                   [](unsigned char c) { return char(std::tolower(c)); });
    return ext;
}

// A writer's message names the temporary file; name the real target.
std::string retarget(const std::string& message, const std::string& temporary,
                     const std::string& path) {
    return message.compare(0, temporary.size(), temporary) == 0
               ? path + message.substr(temporary.size())
               : message;
}

}  // namespace

bool format_for_path(const std::string& path, ImageFormat& format) {
    const std::string ext = lower_extension(path);
    if (ext == "png") {
        format = ImageFormat::Png;
        return true;
    }
    if (ext == "jpg" || ext == "jpeg") {
        format = ImageFormat::Jpeg;
        return true;
    }
    return false;
}

bool decode_image(const std::vector<unsigned char>& bytes, const std::string& name,
                  BgraImage& image, std::string& error) {
    if (looks_like_png(bytes.data(), bytes.size()))
        return read_png_memory(bytes.data(), bytes.size(), name, image, error);
    if (looks_like_jpeg(bytes.data(), bytes.size()))
        return read_jpeg_memory(bytes.data(), bytes.size(), name, image, error);
    error = name + (bytes.empty() ? ": empty file" : ": not a PNG or JPEG file");
    return false;
}

bool read_image(const std::string& path, BgraImage& image, std::string& error) {
    std::vector<unsigned char> bytes;
    return read_file_bytes(path, bytes, error) &&
           decode_image(bytes, path, image, error);
}

bool write_image(const std::string& path, const BgraImage& image, int quality,
                 std::string& error) {
    ImageFormat format;
    if (!format_for_path(path, format)) {
        error = path + ": unknown image type (use .png, .jpg or .jpeg)";
        return false;
    }
    const std::string temporary = temporary_path_for(path);
    std::string write_error;
    const bool written = format == ImageFormat::Png
                             ? write_png(temporary, image, write_error)
                             : write_jpeg(temporary, image, quality, write_error);
    if (!written) error = retarget(write_error, temporary, path);
    return finish_atomic_write(temporary, path, written, error);
}

bool write_bytes(const std::string& path, const std::vector<unsigned char>& bytes,
                 std::string& error) {
    const std::string temporary = temporary_path_for(path);
    std::string write_error;
    const bool written = write_file_bytes(temporary, bytes, write_error);
    if (!written) error = retarget(write_error, temporary, path);
    return finish_atomic_write(temporary, path, written, error);
}

bool has_transparency(const BgraImage& image) {
    for (std::size_t i = 3; i < image.pixels.size(); i += 4)
        if (image.pixels[i] != 255) return true;
    return false;
}

std::string temporary_path_for(const std::string& path) {
    static std::atomic<unsigned> counter{0};
    const std::size_t slash = path.find_last_of('/');
    const std::string folder = slash == std::string::npos ? "" : path.substr(0, slash + 1);
    const std::string name = slash == std::string::npos ? path : path.substr(slash + 1);
    return folder + "." + name + "." + std::to_string(::getpid()) + "-" +
           std::to_string(counter++) + ".tmp";
}

bool finish_atomic_write(const std::string& temporary, const std::string& path, bool ok,
                         std::string& error) {
    if (!ok) {
        std::remove(temporary.c_str());
        return false;
    }
    if (std::rename(temporary.c_str(), path.c_str()) != 0) {
        error = path + ": cannot replace file (" + std::strerror(errno) + ")";
        std::remove(temporary.c_str());
        return false;
    }
    return true;
}

}  // namespace qtzq_app
