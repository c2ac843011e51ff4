// JPEG reading and writing for the applications (libjpeg-turbo), converting to and
// from the library's BGRA pixel buffers.
#ifndef QTZQ_APP_JPEG_IO_H
#define QTZQ_APP_JPEG_IO_H

#include <cstddef>
#include <string>

#include "qtzq_app/png_io.h"

namespace qtzq_app {

// True when `bytes` start with a JPEG start-of-image marker.
bool looks_like_jpeg(const unsigned char* bytes, std::size_t size);

// Decodes a baseline or progressive JPEG (colour or grey) into an opaque
// BGRA image. CMYK files are refused. A truncated or damaged file is an
// error, not a partly grey picture. On failure returns false and sets
// `error` to a message naming `name` and the problem.
bool read_jpeg_memory(const unsigned char* bytes, std::size_t size, const std::string& name,
                      BgraImage& image, std::string& error);

// Writes blue, green and red of the image as a JPEG of the given quality
// (1..100); JPEG keeps no alpha.
bool write_jpeg(const std::string& path, const BgraImage& image, int quality,
                std::string& error);

}  // namespace qtzq_app

#endif  // QTZQ_APP_JPEG_IO_H
