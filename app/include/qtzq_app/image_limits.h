// Size limits shared by the image readers.
#ifndef QTZQ_APP_IMAGE_LIMITS_H
#define QTZQ_APP_IMAGE_LIMITS_H

#include <climits>
#include <cstddef>
#include <cstdint>
#include <string>

namespace qtzq_app {

// The library computes buffer sizes as width * height * 4 in `int`, so the
// applications accept only images whose buffer stays below INT_MAX bytes.
inline bool image_size_supported(std::uint64_t width, std::uint64_t height) {
    return width >= 1 && height >= 1 && width * height * 4 <= std::uint64_t(INT_MAX);
}

inline std::string size_text(std::uint64_t width, std::uint64_t height) {
    return std::to_string(width) + "x" + std::to_string(height);
}

// Images above 16 megapixels (64 MB of pixels) must come from a file of at
// least one byte per kPixelsPerFileByte pixels: a small file declaring an
// enormous image (a decompression bomb) is refused before its pixels are
// allocated. Photos compress far less than that: a 100-megapixel image
// needs a file of 100 KB.
constexpr std::uint64_t kLargeImagePixels = std::uint64_t(1) << 24;
constexpr std::uint64_t kPixelsPerFileByte = 1024;

// Checks a size a file declares before anything is allocated for it; on
// failure sets `error` to "NAME: problem".
inline bool declared_size_ok(std::uint64_t width, std::uint64_t height, std::size_t file_size,
                             const std::string& name, std::string& error) {
    if (!image_size_supported(width, height)) {
        error = name + ": image of " + size_text(width, height) + " pixels is too large";
        return false;
    }
    const std::uint64_t pixels = width * height;
    if (pixels > kLargeImagePixels && pixels / kPixelsPerFileByte > file_size) {
        error = name + ": declares " + size_text(width, height) + " pixels in a file of " +
                std::to_string(file_size) + " bytes (refused as a decompression bomb)";
        return false;
    }
    return true;
}

}  // namespace qtzq_app

#endif  // QTZQ_APP_IMAGE_LIMITS_H
