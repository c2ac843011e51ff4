// The look engine: folding a recipe's steps into few table passes, and the
// single sweep over the photo.
#include "styles/look.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

#include "simd/vector_unit.h"

namespace qtzq {

namespace {

constexpr int kChannels = ChannelMaps::kChannels;
constexpr std::size_t kPairsPerChannel = 256 * 256;

// Pixels per strip of the sweep: a few tens of kilobytes of photo and
// materials, which every step of the recipe finds in cache.
constexpr std::size_t kStripPixels = 4096;

using Materials = std::array<const unsigned char*, Look::kMaxMaterials>;

// fn(pixels, materials, count) for consecutive strips of the photo, the
// materials advancing with it. Span steps always see at most kStripPixels.
template <typename Fn>
void for_each_strip(unsigned char* image, const unsigned char* const* materials, std::size_t count,
                    Fn fn) {
    for (std::size_t start = 0; start < count; start += kStripPixels) {
        const std::size_t offset = start * kBytesPerPixel;
        Materials strip{};
        for (int k = 0; k < Look::kMaxMaterials; ++k)
            strip[k] = materials[k] != nullptr ? materials[k] + offset : nullptr;
        fn(image + offset, strip, std::min(kStripPixels, count - start));
    }
}

// A channel blend against fixed operands, level by level: the blend of
// (a, a, a) with `operand`, or with itself when operand is null.
ChannelMaps tabulate_maps(const ChannelBlend& blend, const unsigned char* operand) {
    ChannelMaps maps;
    for (int a = 0; a < 256; ++a) {
        const auto level = static_cast<unsigned char>(a);
        unsigned char pixel[4] = {level, level, level, 0};
        blend(pixel, operand != nullptr ? operand : pixel);
        for (int c = 0; c < kChannels; ++c) maps.map[c][a] = pixel[c];
    }
    return maps;
}

// A channel blend against a material: entry [c][a * 256 + b] is channel c
// of the blend of (a, a, a) with (b, b, b) of the given alpha.
std::vector<unsigned char> tabulate_pairs(const ChannelBlend& blend, unsigned char alpha = 0) {
    std::vector<unsigned char> pairs(kChannels * kPairsPerChannel);
    for (int a = 0; a < 256; ++a)
        for (int b = 0; b < 256; ++b) {
            const auto base = static_cast<unsigned char>(a), other = static_cast<unsigned char>(b);
            unsigned char pixel[4] = {base, base, base, 0};
            const unsigned char operand[4] = {other, other, other, alpha};
            blend(pixel, operand);
            for (int c = 0; c < kChannels; ++c) pairs[c * kPairsPerChannel + a * 256 + b] = pixel[c];
        }
    return pairs;
}

// A material blend as a table of pairs, kept as one table for all three
// channels when the blend treats them alike.
struct PairTable {
    std::vector<unsigned char> pairs;  // [channel][a * 256 + b], or one table for all
    bool shared = false;

    static PairTable of(const ChannelBlend& blend, unsigned char alpha = 0) {
        PairTable table;
        table.pairs = tabulate_pairs(blend, alpha);
        const unsigned char* first = table.pairs.data();
        table.shared = std::memcmp(first, first + kPairsPerChannel, kPairsPerChannel) == 0 &&
                       std::memcmp(first, first + 2 * kPairsPerChannel, kPairsPerChannel) == 0;
        if (table.shared) table.pairs.resize(kPairsPerChannel);
        return table;
    }

    // From one channel's table to the next.
    std::size_t step() const { return shared ? 0 : kPairsPerChannel; }
};

// Blue, green and red of a pixel through a table of pairs (`step` apart)
// against the material's pixel. All loads before the stores: a byte store
// may alias anything, so a store between them would hold the next load
// back.
inline void apply_pairs(const unsigned char* table, std::size_t step, unsigned char* px,
                        const unsigned char* m) {
    const unsigned char blue = table[px[0] * 256u + m[0]];
    const unsigned char green = table[step + px[1] * 256u + m[1]];
    const unsigned char red = table[2 * step + px[2] * 256u + m[2]];
    px[0] = blue;
    px[1] = green;
    px[2] = red;
}

// Pixels of each alpha among the first `count` pixels of a material.
std::array<std::size_t, 256> alpha_counts(const unsigned char* material, std::size_t count) {
    std::array<std::size_t, 256> counts{};
    for (std::size_t i = 0; i < count; ++i) ++counts[material[i * kBytesPerPixel + 3]];
    return counts;
}

}  // namespace

ChannelMaps channel_maps_of(const std::function<void(unsigned char* pixel)>& step) {
    return tabulate_maps([&step](unsigned char* pixel, const unsigned char*) { step(pixel); }, nullptr);
}

// One pass of the folded recipe over a strip.
struct Look::Compiled {
    static bool same_for_all_channels(const ChannelMaps& maps) {
        return std::memcmp(maps.map[0], maps.map[1], 256) == 0 &&
               std::memcmp(maps.map[0], maps.map[2], 256) == 0;
    }

    enum class Kind { kMaps, kPairs, kBlend, kKernel, kAlphaKeyed, kSpan };
    struct Op {
        Kind kind = Kind::kMaps;
        ChannelMaps maps{};  // kMaps; kAlphaKeyed: the maps before the blend
        PairTable table;  // kPairs
        int material = 0;
        const SpanStep* span = nullptr;
        const ChannelBlend* blend = nullptr;  // a material blend called pixel by pixel
        MaterialKernel kernel = nullptr;
        std::vector<PairTable> keyed;  // [alpha] for kAlphaKeyed (empty: blended one by one)
    };
    std::vector<Op> ops;

    // Folding maps that differ between the channels into a table shared by
    // them gives each channel its own table.
    static void prepare_fold(PairTable& table, const ChannelMaps& maps) {
        if (!table.shared || same_for_all_channels(maps)) return;
        table.pairs.resize(kChannels * kPairsPerChannel);
        for (int c = 1; c < kChannels; ++c)
            std::memcpy(&table.pairs[c * kPairsPerChannel], table.pairs.data(), kPairsPerChannel);
        table.shared = false;
    }

    void add_maps(const ChannelMaps& maps) {
        if (!ops.empty() && ops.back().kind == Kind::kMaps) {
            ops.back().maps = ops.back().maps.then(maps);
        } else if (!ops.empty() && ops.back().kind == Kind::kPairs) {
            PairTable& table = ops.back().table;
            prepare_fold(table, maps);
            const int tables = table.shared ? 1 : kChannels;
            for (int c = 0; c < tables; ++c)
                for (std::size_t i = 0; i < kPairsPerChannel; ++i) {
                    unsigned char& entry = table.pairs[c * kPairsPerChannel + i];
                    entry = maps.map[c][entry];
                }
        } else {
            Op op;
            op.maps = maps;
            ops.push_back(std::move(op));
        }
    }

    void add_pairs(Op pairs) {
        if (!ops.empty() && ops.back().kind == Kind::kMaps) {
            // The maps before feed the blend's first level.
            const ChannelMaps before = ops.back().maps;
            PairTable& table = pairs.table;
            prepare_fold(table, before);
            ops.pop_back();
            std::vector<unsigned char> folded(table.pairs.size());
            const int tables = table.shared ? 1 : kChannels;
            for (int c = 0; c < tables; ++c)
                for (int a = 0; a < 256; ++a)
                    std::memcpy(&folded[c * kPairsPerChannel + a * 256],
                                &table.pairs[c * kPairsPerChannel + before.map[c][a] * 256], 256);
            table.pairs.swap(folded);
        }
        ops.push_back(std::move(pairs));
    }

    // A material blend as a table of pairs.
    static Op pairs_op(const ChannelBlend& blend, int material) {
        Op op;
        op.kind = Kind::kPairs;
        op.table = PairTable::of(blend);
        op.material = material;
        return op;
    }

    // A blend that also reads the material's alpha: a table for each alpha
    // held by enough pixels to repay the table's 65536 calls of the blend,
    // the other pixels blended one by one. At most one table per 65536
    // pixels, so together they stay below 3 bytes per pixel. Maps just
    // before it go into the tables (and before the blend of the others).
    void add_alpha_keyed(const ChannelBlend& blend, int material, const unsigned char* pixels,
                         std::size_t count) {
        Op op;
        op.kind = Kind::kAlphaKeyed;
        op.blend = &blend;
        op.material = material;
        op.maps = ChannelMaps::identity();
        if (!ops.empty() && ops.back().kind == Kind::kMaps) {
            op.maps = ops.back().maps;
            ops.pop_back();
        }
        const ChannelMaps& before = op.maps;
        const ChannelBlend mapped_blend = [&](unsigned char* px, const unsigned char* m) {
            before.apply(px);
            blend(px, m);
        };
        op.keyed.resize(256);
        const std::array<std::size_t, 256> counts = alpha_counts(pixels, count);
        for (int alpha = 0; alpha < 256; ++alpha)
            if (counts[alpha] >= kPairsPerChannel)
                op.keyed[alpha] = PairTable::of(mapped_blend, static_cast<unsigned char>(alpha));
        ops.push_back(std::move(op));
    }

    // A material blend called pixel by pixel.
    void add_blend(const ChannelBlend& blend, int material) {
        Op op;
        op.kind = Kind::kBlend;
        op.blend = &blend;
        op.material = material;
        ops.push_back(std::move(op));
    }

    // A material blend run by its span kernel.
    void add_kernel(MaterialKernel kernel, int material) {
        Op op;
        op.kind = Kind::kKernel;
        op.kernel = kernel;
        op.material = material;
        ops.push_back(std::move(op));
    }

    void add_span(const SpanStep& span) {
        Op op;
        op.kind = Kind::kSpan;
        op.span = &span;
        ops.push_back(std::move(op));
    }

    static void run_alpha_keyed(const Op& op, unsigned char* pixels, const unsigned char* m,
                                std::size_t count) {
        // The tables' addresses in locals: the byte stores below may alias
        // anything else, which would reload them for every pixel.
        const unsigned char* tables[256];
        std::size_t steps[256];
        for (int alpha = 0; alpha < 256; ++alpha) {
            const PairTable& table = op.keyed[alpha];
            tables[alpha] = table.pairs.empty() ? nullptr : table.pairs.data();
            steps[alpha] = table.step();
        }
        for (std::size_t i = 0; i < count * kBytesPerPixel; i += kBytesPerPixel) {
            const unsigned char alpha = m[i + 3];
            const unsigned char* table = tables[alpha];
            if (table == nullptr) {
                op.maps.apply(pixels + i);
                (*op.blend)(pixels + i, m + i);
                continue;
            }
            apply_pairs(table, steps[alpha], pixels + i, m + i);
        }
    }

    void run(unsigned char* pixels, const Materials& materials, std::size_t count) const {
        for (const Op& op : ops) {
            switch (op.kind) {
                case Kind::kMaps:
                    for (std::size_t i = 0; i < count; ++i) op.maps.apply(pixels + i * kBytesPerPixel);
                    break;
                case Kind::kPairs: {
                    const unsigned char* m = materials[op.material];
                    const unsigned char* table = op.table.pairs.data();
                    const std::size_t step = op.table.step();
                    for (std::size_t i = 0; i < count * kBytesPerPixel; i += kBytesPerPixel)
                        apply_pairs(table, step, pixels + i, m + i);
                    break;
                }
                case Kind::kBlend: {
                    const unsigned char* m = materials[op.material];
                    for (std::size_t i = 0; i < count * kBytesPerPixel; i += kBytesPerPixel)
                        (*op.blend)(pixels + i, m + i);
                    break;
                }
                case Kind::kAlphaKeyed:
                    run_alpha_keyed(op, pixels, materials[op.material], count);
                    break;
                case Kind::kKernel:
                    op.kernel(pixels, materials[op.material], count);
                    break;
                case Kind::kSpan:
                    (*op.span)(pixels, materials.data(), count);
                    break;
            }
        }
    }
};

Look& Look::maps(const ChannelMaps& maps) {
    Step step;
    step.maps = maps;
    steps_.push_back(std::move(step));
    return *this;
}

Look& Look::blend_constant(const unsigned char* colour, ChannelBlend blend) {
    return add_blend(Operand::kConstant, colour, 0, std::move(blend));
}

Look& Look::blend_self(ChannelBlend blend) {
    return add_blend(Operand::kSelf, nullptr, 0, std::move(blend));
}

Look& Look::blend_material(int material, ChannelBlend blend) {
    return add_blend(Operand::kMaterial, nullptr, material, std::move(blend));
}

Look& Look::blend_material(int material, ChannelBlend blend, MaterialKernel kernel) {
    add_blend(Operand::kMaterial, nullptr, material, std::move(blend));
    steps_.back().kernel = kernel;
    return *this;
}

Look& Look::blend_material_by_alpha(int material, ChannelBlend blend) {
    add_blend(Operand::kMaterial, nullptr, material, std::move(blend));
    steps_.back().by_alpha = true;
    return *this;
}

Look& Look::add_blend(Operand operand, const unsigned char* colour, int material, ChannelBlend blend) {
    Step step;
    step.operand = operand;
    step.colour = colour;
    step.material = material;
    step.blend = std::move(blend);
    steps_.push_back(std::move(step));
    return *this;
}

Look& Look::span(SpanStep span) {
    Step step;
    step.span = std::move(span);
    steps_.push_back(std::move(step));
    return *this;
}

void Look::run(unsigned char* image, int width, int height,
               std::initializer_list<const unsigned char*> materials) const {
    const std::size_t count = pixel_count(width, height);
    if (count == 0) return;
    Materials given{};
    std::copy_n(materials.begin(), std::min<std::size_t>(materials.size(), kMaxMaterials), given.begin());
    if (integer_fast_paths_enabled())
        run_folded(image, count, given.data());
    else
        run_step_by_step(image, count, given.data());
}

// The reference: each step over the whole photo before the next.
void Look::run_step_by_step(unsigned char* image, std::size_t count,
                            const unsigned char* const* materials) const {
    for (const Step& step : steps_) {
        if (step.span) {
            for_each_strip(image, materials, count, [&](unsigned char* pixels, const Materials& strip,
                                                        std::size_t n) { step.span(pixels, strip.data(), n); });
            continue;
        }
        for (std::size_t i = 0; i < count; ++i) {
            unsigned char* pixel = image + i * kBytesPerPixel;
            switch (step.operand) {
                case Operand::kNone: step.maps.apply(pixel); break;
                case Operand::kConstant: step.blend(pixel, step.colour); break;
                case Operand::kSelf: step.blend(pixel, pixel); break;
                case Operand::kMaterial:
                    step.blend(pixel, materials[step.material] + i * kBytesPerPixel);
                    break;
            }
        }
    }
}

void Look::run_folded(unsigned char* image, std::size_t count,
                      const unsigned char* const* materials) const {
    Compiled compiled;
    for (const Step& step : steps_) {
        if (step.span) {
            compiled.add_span(step.span);
            continue;
        }
        if (step.by_alpha && count >= pair_tables_from_) {
            compiled.add_alpha_keyed(step.blend, step.material, materials[step.material], count);
            continue;
        }
        if (step.kernel != nullptr) {
            compiled.add_kernel(step.kernel, step.material);
            continue;
        }
        if (step.operand == Operand::kMaterial && count < pair_tables_from_) {
            compiled.add_blend(step.blend, step.material);
            continue;
        }
        switch (step.operand) {
            case Operand::kNone: compiled.add_maps(step.maps); break;
            case Operand::kConstant: compiled.add_maps(tabulate_maps(step.blend, step.colour)); break;
            case Operand::kSelf: compiled.add_maps(tabulate_maps(step.blend, nullptr)); break;
            case Operand::kMaterial: compiled.add_pairs(Compiled::pairs_op(step.blend, step.material)); break;
        }
    }
    for_each_strip(image, materials, count,
                   [&](unsigned char* pixels, const Materials& strip, std::size_t n) {
                       compiled.run(pixels, strip, n);
                   });
}

}  // namespace qtzq
