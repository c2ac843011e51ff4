// The file formats behind image_file.h: a decoder per readable format and
// an encoder per writable one, each in a file of its own.
#ifndef QTZQ_APP_PHOTO_CODECS_H
#define QTZQ_APP_PHOTO_CODECS_H

#include <cstddef>
#include <string>
#include <vector>

#include "qtzq_app/image_file.h"

namespace qtzq_app {

// A photo as its file stores it.
struct DecodedPhoto {
    BgraImage image;
    PhotoMetadata metadata;  // EXIF as stored (orientation not reset yet)
    int orientation = 1;     // EXIF orientation (1..8) still to apply to `image`
    std::vector<std::string> notes;
};

// Decoders: on failure false, with `error` naming `name` and the problem.
bool decode_png(const unsigned char* bytes, std::size_t size, const std::string& name,
                DecodedPhoto& photo, std::string& error);
bool decode_jpeg(const unsigned char* bytes, std::size_t size, const std::string& name,
                 DecodedPhoto& photo, std::string& error);
bool decode_webp(const unsigned char* bytes, std::size_t size, const std::string& name,
                 DecodedPhoto& photo, std::string& error);
bool decode_tiff(const unsigned char* bytes, std::size_t size, const std::string& name,
                 DecodedPhoto& photo, std::string& error);
bool decode_heif(const unsigned char* bytes, std::size_t size, const std::string& name,
                 DecodedPhoto& photo, std::string& error);

bool looks_like_webp(const unsigned char* bytes, std::size_t size);
bool looks_like_tiff(const unsigned char* bytes, std::size_t size);
bool looks_like_heif(const unsigned char* bytes, std::size_t size);

// Encoders: write `path` (the caller makes it atomic); on failure false,
// with `error` naming `path`.
bool encode_png(const std::string& path, const BgraImage& image, const PhotoMetadata& metadata,
                const WriteOptions& options, std::string& error);
bool encode_jpeg(const std::string& path, const BgraImage& image, const PhotoMetadata& metadata,
                 const WriteOptions& options, std::string& error);
bool encode_webp(const std::string& path, const BgraImage& image, const PhotoMetadata& metadata,
                 const WriteOptions& options, std::string& error);
bool encode_tiff(const std::string& path, const BgraImage& image, const PhotoMetadata& metadata,
                 const WriteOptions& options, std::string& error);

}  // namespace qtzq_app

#endif  // QTZQ_APP_PHOTO_CODECS_H
