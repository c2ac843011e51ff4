// Unsigned integers stored most significant byte first, as the chunk and
// box headers of PNG and HEIF files hold them.
#ifndef QTZQ_APP_SRC_BIG_ENDIAN_H
#define QTZQ_APP_SRC_BIG_ENDIAN_H

#include <cstdint>

namespace qtzq_app {

// The `bytes` bytes (1..8) at `p`; the caller has checked they are there.
inline std::uint64_t big_endian(const unsigned char* p, int bytes) {
    std::uint64_t value = 0;
    for (int i = 0; i < bytes; ++i) value = value << 8 | p[i];
    return value;
}

}  // namespace qtzq_app

#endif  // QTZQ_APP_SRC_BIG_ENDIAN_H
