// WeakRoundChange: the round weight patch of the soft glow.
#include <algorithm>
#include <cstdint>

#include "qtzqeffect/blur.h"

namespace {

// Beyond this outer radius the patch would exceed any address space, and
// outer * outer would leave 32 bits.
constexpr int kLargestOuter = 46340;

// The cell at squared distance d for A = inner^2, B = outer^2. The double
// test (first against A / 4, then against A) and the jump in formula at the
// inner radius are the intended shape. Computed in 64 bits so that no radius
// overflows; a division by zero cannot occur (each division is only reached
// when its divisor is positive).
unsigned char cell(std::int64_t d, std::int64_t a, std::int64_t b) {
    if (4 * d <= a) return 255;
    if (d <= a) {
        const std::int64_t t = (a - d) * 256 / a;
        return static_cast<unsigned char>(t > 127 ? 255 : t + 128);
    }
    if (d <= b) return static_cast<unsigned char>(std::min<std::int64_t>((b - d) * 128 / (b - a), 255));
    return 0;
}

}  // namespace

void WeakRoundChange(unsigned char* patch, int inner, int outer) {
    if (outer < 0 || outer > kLargestOuter) return;
    const std::int64_t a = std::int64_t(inner) * inner;
    const std::int64_t b = std::int64_t(outer) * outer;
    for (int y = -outer; y <= outer; ++y) {
        for (int x = -outer; x <= outer; ++x) *patch++ = cell(std::int64_t(x) * x + std::int64_t(y) * y, a, b);
    }
}
