// Reading and writing photos by file type, recognised by their content when
// reading and by the extension when writing: PNG, JPEG, WebP and TIFF both
// ways, HEIF (HEIC) and AVIF read only. Reading turns the pixels upright
// by the file's EXIF orientation. Writing goes through a temporary file in
// the same folder that is renamed over the target only once it is
// complete, so a failed run never leaves a half-written or clobbered
// output.
#ifndef QTZQ_APP_IMAGE_FILE_H
#define QTZQ_APP_IMAGE_FILE_H

#include <string>
#include <vector>

#include "qtzq_app/png_io.h"

namespace qtzq_app {

enum class ImageFormat { Png, Jpeg, Webp, Tiff };

// The format a path's extension asks for (.png, .jpg, .jpeg, .webp, .tif,
// .tiff, any case); false for anything else.
bool format_for_path(const std::string& path, ImageFormat& format);

// The extensions format_for_path accepts, for messages: ".png, .jpg, ...".
const char* writable_extensions();

// What a photo file carries besides its pixels, carried from input to
// output where the output format holds it. The pixels are never colour
// converted: the colour profile travels with the bytes it describes.
struct PhotoMetadata {
    std::vector<unsigned char> icc;   // ICC colour profile
    std::vector<unsigned char> exif;  // EXIF as a TIFF structure ("II*" or "MM*"),
                                      // orientation 1, no embedded thumbnail
    std::vector<unsigned char> xmp;   // XMP packet (XML)
};

struct Photo {
    BgraImage image;  // upright
    PhotoMetadata metadata;
    std::vector<std::string> notes;  // e.g. "PATH: animated WebP: the first frame is used"
};

struct WriteOptions {
    // Level 1 writes PNG several times faster than zlib's default level.
    static constexpr int kDefaultCompression = 1;

    int quality = 92;                         // JPEG and lossy WebP, 1..100
    bool lossless = false;                    // WebP
    int compression = kDefaultCompression;    // PNG and TIFF deflate level, 0..9
};

// Reads a photo file of any readable format, upright, with its metadata.
// On failure returns false and sets `error` to "PATH: problem".
bool read_photo(const std::string& path, Photo& photo, std::string& error);

// Decodes the bytes of a photo file (recognised by their content); `name`
// is used in messages.
bool decode_photo(const std::vector<unsigned char>& bytes, const std::string& name, Photo& photo,
                  std::string& error);

// Writes the image with the metadata the format holds, in the format of the
// path's extension, atomically.
bool write_photo(const std::string& path, const BgraImage& image, const PhotoMetadata& metadata,
                 const WriteOptions& options, std::string& error);

// read_photo and decode_photo without the metadata and notes.
bool read_image(const std::string& path, BgraImage& image, std::string& error);
bool decode_image(const std::vector<unsigned char>& bytes, const std::string& name,
                  BgraImage& image, std::string& error);

// Writes the image without metadata (JPEG and lossy WebP at the given
// quality, 1..100), atomically.
bool write_image(const std::string& path, const BgraImage& image, int quality,
                 std::string& error);

// Writes raw bytes (a table set, a frame file) atomically.
bool write_bytes(const std::string& path, const std::vector<unsigned char>& bytes,
                 std::string& error);

// True when some pixel is not fully opaque (JPEG would lose it).
bool has_transparency(const BgraImage& image);

// A fresh temporary name beside `path`.
std::string temporary_path_for(const std::string& path);
// Completes an atomic write: renames `temporary` over `path`, or removes it when `ok` is false.
bool finish_atomic_write(const std::string& temporary, const std::string& path, bool ok,
                         std::string& error);

}  // namespace qtzq_app

#endif  // QTZQ_APP_IMAGE_FILE_H
