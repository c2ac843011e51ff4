// CSharp's unsharp masking: pushing each colour away from its blurred value.
#include <algorithm>
#include <climits>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <vector>

#include "blur/csharp_column_sweep.h"
#include "blur/csharp_pass.h"
#include "blur/csharp_size.h"
#include "blur/preview_cache.h"
#include "pixel/image_walk.h"
#include "qtzqeffect/blur.h"
#include "simd/vector_unit.h"

using qtzq::for_each_pixel;

namespace {

constexpr int kFixedOne = 10000;  // amounts are applied in steps of 1/10000
constexpr int kLastArgument = 7;  // passed on by useEffect, never read
constexpr unsigned char kOpaque = 255;

// float to int truncating toward zero, saturating at the ends of the int
// range and 0 for not-a-number, as the 32-bit ARM conversion does.
int saturating_truncate(float v) {
    if (v != v) return 0;
    if (v >= 2147483648.0f) return INT_MAX;
    if (v <= -2147483648.0f) return INT_MIN;
    return static_cast<int>(v);
}

// a = (int)(amount * 10000 + 0.5) in single precision; w = a + 10000.
struct FixedAmount {
    std::uint32_t a;
    std::uint32_t w;

    explicit FixedAmount(float amount) {
        const float scaled = amount * 10000.0f + 0.5f;
        a = static_cast<std::uint32_t>(saturating_truncate(scaled));
        w = a + std::uint32_t(kFixedOne);
    }

    // (orig * w - blur * a) / 10000 in 32-bit integers, clamped to a byte.
    // The products wrap as 32-bit integers do (only for amounts far beyond
    // any use), written in unsigned arithmetic so that the wrap is defined.
    unsigned char sharpen(unsigned char orig, unsigned char blur) const {
        const std::uint32_t wrapped = std::uint32_t(orig) * w - std::uint32_t(blur) * a;
        const int v = static_cast<std::int32_t>(wrapped) / kFixedOne;
        return static_cast<unsigned char>(std::clamp(v, 0, 255));
    }

    // Red, then green, then blue of one pixel.
    void apply(unsigned char* out, const unsigned char* orig, const unsigned char* blur) const {
        for (int c = 2; c >= 0; --c) out[c] = sharpen(orig[c], blur[c]);
    }
};

// Every (orig, blur) pair's sharpened value, looked up instead of computed
// on the fast paths: built by FixedAmount itself, so exact by construction,
// and 65536 entries cost little against a photo's millions of channels.
class SharpenTable {
public:
    explicit SharpenTable(const FixedAmount& fixed) : values_(256 * 256) {
        for (int orig = 0; orig < 256; ++orig)
            for (int blur = 0; blur < 256; ++blur)
                values_[orig * 256 + blur] = fixed.sharpen(static_cast<unsigned char>(orig),
                                                           static_cast<unsigned char>(blur));
    }

    // Colours of one pixel, as FixedAmount::apply, and alpha made opaque
    // when asked.
    void apply(unsigned char* out, const unsigned char* orig, const unsigned char* blur,
               bool opaque) const {
        for (int c = 2; c >= 0; --c) out[c] = values_[orig[c] * 256 + blur[c]];
        if (opaque) out[3] = kOpaque;
    }

    // A row of `width` pixels.
    void apply_row(unsigned char* out, const unsigned char* orig, const unsigned char* blur,
                   int width, bool opaque) const {
        for (int x = 0; x < width; ++x) {
            const std::size_t at = std::size_t(x) * qtzq::kBytesPerPixel;
            apply(out + at, orig + at, blur + at, opaque);
        }
    }

private:
    std::vector<unsigned char> values_;
};

// dst's colours become the sharpened colours of src against the blur in dst.
void sharpen_against_blur(const unsigned char* src, unsigned char* dst, int width, int height,
                          float amount) {
    const FixedAmount fixed(amount);
    std::size_t offset = 0;
    for_each_pixel(dst, width, height, [&](unsigned char* blurred) {
        fixed.apply(blurred, src + offset, blurred);
        offset += qtzq::kBytesPerPixel;
    });
}

// Copies the colours of `from` into `to` and makes every pixel opaque.
void copy_colours_opaque(const unsigned char* from, unsigned char* to, int width, int height) {
    std::size_t offset = 0;
    for_each_pixel(to, width, height, [&](unsigned char* px) {
        std::memcpy(px, from + offset, 3);
        px[3] = kOpaque;
        offset += qtzq::kBytesPerPixel;
    });
}

// The fields a whole-image call records before it works.
struct CallFields {
    int& width;
    int& height;
    int& stride;
    float& amount;
    float& radius;
};

void store_call(CallFields fields, long width, long height, int radius, float amount) {
    fields.width = qtzq::stored_dimension(width);
    fields.height = qtzq::stored_dimension(height);
    fields.stride = qtzq::row_stride(fields.width);
    fields.amount = amount;
    fields.radius = static_cast<float>(radius);
}

std::size_t image_bytes(int width, int height) {
    return qtzq::pixel_count(width, height) * qtzq::kBytesPerPixel;
}

// The fast paths' column pass over the row-pass blur: each pixel sharpened
// as soon as its blur is known (orig against it) and its colours written to
// `out`, made opaque when asked. The same bytes as blurring whole and
// sharpening in a further sweep.
void sharpen_in_column_pass(const qtzq::CSharpPass& columns, const unsigned char* row_blur,
                            const unsigned char* orig, unsigned char* out, float amount,
                            bool opaque) {
    const SharpenTable table{FixedAmount(amount)};
    qtzq::blur_csharp_pass(columns, row_blur, [&](std::ptrdiff_t offset, const unsigned char* blurred) {
        table.apply(out + offset, orig + offset, blurred, opaque);
    });
}

// useEffect's other fast path: the row pass into a scratch image that it
// fills whole (all four bytes of every pixel, so nothing is zeroed first),
// then the column pass sharpening straight back into the buffer, opaque.
void unsharp_in_place(const qtzq::CSharpPass& rows, unsigned char* buffer, float amount) {
    const std::unique_ptr<unsigned char[]> scratch(new unsigned char[image_bytes(rows.width, rows.height)]);
    unsigned char* const row_blur = scratch.get();
    qtzq::blur_csharp_pass(rows, buffer, [row_blur](std::ptrdiff_t offset, const unsigned char* blurred) {
        std::memcpy(row_blur + offset, blurred, qtzq::kBytesPerPixel);
    });
    qtzq::CSharpPass columns = rows;
    columns.horizontal = false;
    sharpen_in_column_pass(columns, row_blur, buffer, buffer, amount, true);
}

// The one sweep is the faster fast path at every size measured, large rings
// included (CPU time on 4000 x 3000: r1 45 against 84 ms, r10 94 against 155,
// r50 147 against 211; at r50 on 12000 x 252, a ring four times the image, 64
// against 129), so the choice is about memory: the sweep runs unless its ring
// would be larger than both 4 MB and the scratch image useEffect's two passes
// allocate. That leaves the two passes to short wide images at large radii
// (32-bit sums and a kernel as tall as the image make the ring about four
// times the image).
constexpr std::size_t kSmallRing = std::size_t(4) << 20;

bool sweep_fits(const qtzq::CSharpPass& pass) {
    const std::size_t ring =
        qtzq::CSharpColumnSweep::ring_bytes(pass.kernel, pass.kernel_size, pass.width, pass.height);
    return ring <= std::max(kSmallRing, image_bytes(pass.width, pass.height));
}

// The fast paths in one sweep down the image: the row pass hands its rows
// to the column sweep, which hands back each row of the blur as soon as the
// rows it reads are in, sharpened at once from orig into out. out may be
// orig: row y is written after the row pass has read it (and every row up
// to y + half), and nothing reads it later but its own sharpening, which
// reads each byte before writing it.
void unsharp_in_one_sweep(const qtzq::CSharpPass& pass, const unsigned char* orig, unsigned char* out,
                          float amount, bool opaque) {
    const SharpenTable table{FixedAmount(amount)};
    qtzq::CSharpColumnSweep columns(pass.kernel, pass.kernel_sum, pass.kernel_size, pass.width,
                                    pass.height);
    const std::size_t row_bytes = std::size_t(pass.width) * qtzq::kBytesPerPixel;
    const auto sharpen_row = [&](int y, const unsigned char* blurred) {
        const std::size_t at = std::size_t(y) * row_bytes;
        table.apply_row(out + at, orig + at, blurred, pass.width, opaque);
    };
    qtzq::blur_csharp_rows(pass, orig, [&](int, const unsigned char* row_blur) {
        columns.add_row(row_blur, sharpen_row);
    });
}

}  // namespace

// The fast path sharpens in one sweep, or, where the sweep's ring would be
// large or dst is src, runs the row pass into dst and sharpens during the
// column pass; dst's alpha is left as it was.
int CSharp::GetUnsharpMask(unsigned char* src, unsigned char* dst, int a, float amount, int b) {
    if (!qtzq::integer_fast_paths_enabled() || m_kernelSize < 2 || m_width < 1 || m_height < 1) {
        GetBlur(src, dst, a, b, false);
        sharpen_against_blur(src, dst, m_width, m_height, amount);
        return 1;
    }
    const qtzq::CSharpPass columns{m_kernel, m_kernelSum, m_kernelSize, m_width, m_height, false};
    if (src != dst && sweep_fits(columns)) {
        unsharp_in_one_sweep(columns, src, dst, amount, false);
        return 1;
    }
    ConvoluteDimension(src, dst, a, true, false);
    sharpen_in_column_pass(columns, dst, src, dst, amount, false);
    return 1;
}

int CSharp::GetUnsharpMaskPreview(unsigned char* src, unsigned char* dst, int a, float amount,
                                  int b, int size) {
    // Copies never run past the image nor past the cache.
    const std::size_t bytes = image_bytes(m_width, m_height);
    if (!m_previewCache) {
        m_previewCache = qtzq::preview_cache_create(size > 0 ? std::size_t(size) : 0);
        GetBlur(src, dst, a, b, false);
        std::memcpy(m_previewCache, dst, std::min(bytes, qtzq::preview_cache_size(m_previewCache)));
    } else {
        std::memcpy(dst, m_previewCache, std::min(bytes, qtzq::preview_cache_size(m_previewCache)));
    }
    sharpen_against_blur(src, dst, m_width, m_height, amount);
    return 1;
}

int CSharp::useEffect(unsigned char* buffer, long width, long height, int radius, float amount) {
    if (!SetRadius(radius)) return 0;
    store_call({m_width, m_height, m_stride, m_amount, m_radius}, width, height, radius, amount);

    if (qtzq::integer_fast_paths_enabled() && m_width >= 1 && m_height >= 1) {
        const qtzq::CSharpPass rows{m_kernel, m_kernelSum, m_kernelSize, m_width, m_height, true};
        if (sweep_fits(rows)) unsharp_in_one_sweep(rows, buffer, buffer, amount, true);
        else unsharp_in_place(rows, buffer, amount);
        return 1;
    }
    std::vector<unsigned char> result(image_bytes(m_width, m_height));
    GetUnsharpMask(buffer, result.data(), static_cast<int>(m_radius), amount, kLastArgument);
    copy_colours_opaque(result.data(), buffer, m_width, m_height);
    return 1;
}

int CSharp::useEffectPreview(unsigned char* buffer, long width, long height, int radius,
                             float amount) {
    if (!SetRadius(radius)) return 0;
    store_call({m_width, m_height, m_stride, m_amount, m_radius}, width, height, radius, amount);

    const std::size_t bytes = image_bytes(m_width, m_height);
    const int size = bytes > std::size_t(INT_MAX) ? INT_MAX : static_cast<int>(bytes);
    std::vector<unsigned char> result(bytes);
    GetUnsharpMaskPreview(buffer, result.data(), static_cast<int>(m_radius), amount,
                          kLastArgument, size);
    copy_colours_opaque(result.data(), buffer, m_width, m_height);
    return 1;
}

int CSharp::SharpProcess(unsigned char* image, unsigned char* blurred, int width, int height,
                         float amount) {
    m_width = width;
    m_height = height;
    m_stride = qtzq::row_stride(width);
    m_amount = amount;
    const FixedAmount fixed(amount);
    for_each_pixel(image, blurred, width, height,
                   [&](unsigned char* px, unsigned char* blur) { fixed.apply(px, px, blur); });
    return 1;
}
