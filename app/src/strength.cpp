#include "qtzq_app/strength.h"

namespace qtzq_app {

void mix_strength(const unsigned char* original, unsigned char* result, std::size_t pixels,
                  int percent) {
    if (percent >= 100) return;
    const unsigned kept = unsigned(100 - percent), moved = unsigned(percent);
    for (std::size_t i = 0; i < pixels * 4; i += 4)
        for (std::size_t c = i; c < i + 3; ++c)
            result[c] = static_cast<unsigned char>((original[c] * kept + result[c] * moved + 50) / 100);
}

}  // namespace qtzq_app
