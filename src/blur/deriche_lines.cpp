#include "blur/deriche_lines.h"

#include <algorithm>
#include <cstdint>
#include <vector>

#include "blur/deriche_line_filter.h"
#include "blur/vector/deriche_block.h"
#include "simd/vector_unit.h"

namespace qtzq {
namespace {

using BlockKernel = void (*)(const DericheLines&, const DericheCoefficients&, double*);

BlockKernel block_kernel(VectorUnit unit) {
#if defined(QTZQ_X86_KERNELS)
    if (unit == VectorUnit::kAvx2) return avx2::filter_deriche_block;
    if (unit == VectorUnit::kSse2) return sse2::filter_deriche_block;
#else
    (void)unit;
#endif
    return nullptr;
}

void filter_lines_scalar(const DericheLines& lines, const DericheCoefficients& k) {
    DericheLineFilter filter(lines.length);
    for (int l = 0; l < lines.count; ++l)
        filter.run(lines.in + l * lines.in_line_step, lines.in_step,
                   lines.out + l * lines.out_line_step, lines.out_step, lines.length, k);
}

// The block kernels' work area, aligned for the widest vector.
class BlockWork {
public:
    explicit BlockWork(int length)
        : storage_(deriche_block_work_doubles(length) + kAlignDoubles) {}
    double* data() {
        const std::uintptr_t at = reinterpret_cast<std::uintptr_t>(storage_.data());
        const std::uintptr_t skip = (kAlignBytes - at % kAlignBytes) % kAlignBytes;
        return storage_.data() + skip / sizeof(double);
    }

private:
    static constexpr std::size_t kAlignBytes = kDericheBlockAlignment;
    static constexpr std::size_t kAlignDoubles = kAlignBytes / sizeof(double);
    std::vector<double> storage_;
};

}  // namespace

void filter_deriche_lines(const DericheLines& lines, const DericheCoefficients& k) {
    if (lines.length < 1 || lines.count < 1) return;
    const BlockKernel kernel = block_kernel(active_vector_unit());
    if (!kernel) {
        filter_lines_scalar(lines, k);
        return;
    }
    BlockWork work(lines.length);
    for (int first = 0; first < lines.count; first += kDericheBlockLines) {
        DericheLines block = lines;
        block.in += first * lines.in_line_step;
        block.out += first * lines.out_line_step;
        block.count = std::min(kDericheBlockLines, lines.count - first);
        kernel(block, k, work.data());
    }
}

void filter_deriche_pass(unsigned char* image, int width, int height, int channels,
                         bool horizontal, const DericheCoefficients& k) {
    const std::ptrdiff_t row_bytes = std::ptrdiff_t(width) * channels;
    const int length = horizontal ? width : height;
    const int lines = horizontal ? height : width;
    const std::ptrdiff_t pixel_step = horizontal ? channels : row_bytes;
    const std::ptrdiff_t line_step = horizontal ? row_bytes : channels;
    filter_deriche_lines({image, pixel_step, line_step, image, pixel_step, line_step, length, lines},
                         k);
}

}  // namespace qtzq
