#include "qtzq_app/image_file.h"

#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cctype>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <vector>

#include "qtzq_app/exif.h"
#include "qtzq_app/file_bytes.h"
#include "qtzq_app/orientation.h"
#include "jpeg_io.h"
#include "photo_codecs.h"

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
    static const std::pair<const char*, ImageFormat> extensions[] = {
        {"png", ImageFormat::Png},  {"jpg", ImageFormat::Jpeg},  {"jpeg", ImageFormat::Jpeg},
        {"webp", ImageFormat::Webp}, {"tif", ImageFormat::Tiff}, {"tiff", ImageFormat::Tiff},
    };
    const std::string ext = lower_extension(path);
    for (const auto& [name, value] : extensions)
        if (ext == name) {
            format = value;
            return true;
        }
    return false;
}

const char* writable_extensions() { return ".png, .jpg, .jpeg, .webp, .tif or .tiff"; }

namespace {

using Decoder = bool (*)(const unsigned char*, std::size_t, const std::string&, DecodedPhoto&,
                         std::string&);

Decoder decoder_for(const std::vector<unsigned char>& bytes) {
    const unsigned char* b = bytes.data();
    const std::size_t n = bytes.size();
    if (looks_like_png(b, n)) return decode_png;
    if (looks_like_jpeg(b, n)) return decode_jpeg;
    if (looks_like_webp(b, n)) return decode_webp;
    if (looks_like_tiff(b, n)) return decode_tiff;
    if (looks_like_heif(b, n)) return decode_heif;
    return nullptr;
}

}  // namespace

bool decode_photo(const std::vector<unsigned char>& bytes, const std::string& name, Photo& photo,
                  std::string& error) {
    const Decoder decode = decoder_for(bytes);
    if (!decode) {
        error = name + (bytes.empty() ? ": empty file"
                                      : ": not a PNG, JPEG, WebP, TIFF, HEIF or AVIF file");
        return false;
    }
    DecodedPhoto decoded;
    if (!decode(bytes.data(), bytes.size(), name, decoded, error)) return false;
    photo.image = upright(decoded.image, decoded.orientation);
    photo.metadata = std::move(decoded.metadata);
    if (!photo.metadata.exif.empty()) photo.metadata.exif = exif_for_output(photo.metadata.exif);
    photo.notes = std::move(decoded.notes);
    return true;
}

bool read_photo(const std::string& path, Photo& photo, std::string& error) {
    std::vector<unsigned char> bytes;
    return read_file_bytes(path, bytes, error) && decode_photo(bytes, path, photo, error);
}

bool decode_image(const std::vector<unsigned char>& bytes, const std::string& name,
                  BgraImage& image, std::string& error) {
    Photo photo;
    if (!decode_photo(bytes, name, photo, error)) return false;
    image = std::move(photo.image);
    return true;
}

bool read_image(const std::string& path, BgraImage& image, std::string& error) {
    std::vector<unsigned char> bytes;
    return read_file_bytes(path, bytes, error) && decode_image(bytes, path, image, error);
}

bool write_photo(const std::string& path, const BgraImage& image, const PhotoMetadata& metadata,
                 const WriteOptions& options, std::string& error) {
    ImageFormat format;
    if (!format_for_path(path, format)) {
        error = path + ": unknown image type (use " + writable_extensions() + ")";
        return false;
    }
    using Encoder = bool (*)(const std::string&, const BgraImage&, const PhotoMetadata&,
                             const WriteOptions&, std::string&);
    const Encoder encode = format == ImageFormat::Png    ? encode_png
                           : format == ImageFormat::Jpeg ? encode_jpeg
                           : format == ImageFormat::Webp ? encode_webp
                                                         : encode_tiff;
    const std::string temporary = temporary_path_for(path);
    std::string write_error;
    const bool written = encode(temporary, image, metadata, options, write_error);
    if (!written) error = retarget(write_error, temporary, path);
    return finish_atomic_write(temporary, path, written, error);
}

bool write_image(const std::string& path, const BgraImage& image, int quality,
                 std::string& error) {
    WriteOptions options;
    options.quality = quality;
    return write_photo(path, image, {}, options, error);
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
