// Reading and writing photos by file type: PNG and JPEG, recognised by
// their content when reading and by the extension when writing. Writing
// goes through a temporary file in the same folder that is renamed over
// the target only once it is complete, so a failed run never leaves a
// half-written or clobbered output.
#ifndef QTZQ_APP_IMAGE_FILE_H
#define QTZQ_APP_IMAGE_FILE_H

#include <string>
#include <vector>

#include "qtzq_app/png_io.h"

namespace qtzq_app {

enum class ImageFormat { Png, Jpeg };

// The format a path's extension asks for (.png, .jpg, .jpeg, any case);
// false for anything else.
bool format_for_path(const std::string& path, ImageFormat& format);

// Reads a PNG or JPEG file into a BGRA image. On failure returns false and
// sets `error` to "PATH: problem".
bool read_image(const std::string& path, BgraImage& image, std::string& error);

// Decodes PNG or JPEG bytes (recognised by their content); `name` is used
// in the error message.
bool decode_image(const std::vector<unsigned char>& bytes, const std::string& name,
                  BgraImage& image, std::string& error);

// Writes the image in the format of the path's extension (JPEG at the given
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
