// Size limits shared by the image readers.
#ifndef QTZQ_APP_IMAGE_LIMITS_H
#define QTZQ_APP_IMAGE_LIMITS_H

#include <climits>
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

}  // namespace qtzq_app

#endif  // QTZQ_APP_IMAGE_LIMITS_H
