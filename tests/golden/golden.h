// The golden-digest harness: every exported function, preset and facade id
// runs on fixed generated inputs, and everything a case produces is reduced
// to one SHA-256, compared with the committed digests.txt.
//
// A case is one row (name, shape, callable) in the table of its subsystem,
// the Cases function of a *_cases.cpp file. Adding a function is one row:
//
//     image("styles.StyleFilm", StyleFilm),
//     blend("pixel.ScreenEx", ScreenEx),
//     sweep({-40, 0, 25}, [](int a) {
//         return image(named("pixel.Bright", a), [=](auto* p, int w, int h) { Bright(p, w, h, a);
//         });
//     }),
//
// A shape runs the callable on fresh copies of the fixed inputs and records
// every buffer it was handed (so a write to a buffer meant only to be read
// shows too) and its result when that is an integer or bool (pointers are
// not recorded: addresses differ per run). Callables that draw from rand()
// pass Needs::rand.
#ifndef QTZQ_TESTS_GOLDEN_GOLDEN_H
#define QTZQ_TESTS_GOLDEN_GOLDEN_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <iosfwd>
#include <map>
#include <set>
#include <string>
#include <type_traits>
#include <vector>

namespace qtzq_golden {

using Bytes = std::vector<unsigned char>;

// Feeds values to SHA-256 in a fixed serialisation, independent of the host:
// integers as little-endian two's complement of their width, floating-point
// values as the little-endian bytes of their IEEE-754 bits, images as width,
// height, then their bytes. One differing bit anywhere changes the digest.
class Recorder {
   public:
    // sink, when given, receives a copy of every recorded byte (--dump).
    explicit Recorder(Bytes* sink = nullptr) : sink_(sink) {}
    void bytes(const unsigned char* data, std::size_t size);
    void bytes(const Bytes& data) { bytes(data.data(), data.size()); }
    void i32(std::int32_t value) { little_endian(static_cast<std::uint32_t>(value), 4); }
    void u32(std::uint32_t value) { little_endian(value, 4); }
    void f32(float value);
    void f64(double value);
    void image(const unsigned char* pixels, int width, int height);
    void image(const Bytes& pixels, int width, int height) { image(pixels.data(), width, height); }
    std::string hex_digest();  // pads the message: the recorder is spent afterwards

   private:
    void little_endian(std::uint64_t value, int size);
    void absorb(const unsigned char* data, std::size_t size);
    void compress();

    std::array<std::uint32_t, 8> state_ = {0x6a09e667, 0xbb67ae85, 0x3c6ef372, 0xa54ff53a,
                                           0x510e527f, 0x9b05688c, 0x1f83d9ab, 0x5be0cd19};
    std::array<unsigned char, 64> block_{};
    std::size_t used_ = 0;
    std::uint64_t length_ = 0;
    Bytes* sink_;
};

// The fixed inputs, from integer arithmetic alone (no rand(), no floating
// point), so that every platform builds the very same bytes.
struct Scene {
    int width, height;
    Bytes photo, material1, material2, material3;
};
// 1x1, 1x6, 6x1, 2x2, 3x5, 13x7, 97x61 and a 256x256 one whose photo is
// channel_pairs().base. Scene cases run on copies of each, in this order.
const std::vector<Scene>& scenes();
// Gradients, noise, a hard edge, some pure primaries, alpha over 0..255.
Bytes photo(int width, int height);
// Vignette, texture and tint, different for which = 1, 2, 3; alpha varies.
Bytes material_image(int width, int height, int which);
// Two 256x256 images in which each colour channel of a (base, blend) pixel
// pair holds one pair of byte values, every one of the 65536 exactly once:
// blue (i, j), green (j, i), red (i + j, i + 2j) mod 256 for pixel (i, j).
struct ChannelPairs {
    static constexpr int kSide = 256;
    Bytes base, blend;
};
const ChannelPairs& channel_pairs();
// Three asymmetric 256x256 maps at byte offsets 4, 65543 and 131082 of
// 196618 bytes (0xA5 elsewhere): a swapped operand or wrong offset shows.
const Bytes& blend_tables();

// A parameter value as it appears in a case name: "0.5", "-3", "1e+10".
std::string label(double value);
// prefix.v1_v2_...: named("pixel.Light", 30, -20) is "pixel.Light.30_-20".
template <typename... Values>
std::string named(const std::string& prefix, Values... values) {
    std::string name = prefix + ".";
    bool first = true;
    ((name += (first ? "" : "_") + label(values), first = false), ...);
    return name;
}

enum class Needs {
    nothing,
    // The C library's rand() sequence, reseeded before every case. glibc's
    // is the same on x86-64 and armhf; with another C library these cases
    // are skipped.
    rand,
};

struct Case {
    std::string name;
    std::function<void(Recorder&)> run;
    Needs needs = Needs::nothing;
};

// A table of cases: rows are cases or (from sweep) runs of cases.
struct Cases : std::vector<Case> {
    Cases() = default;
    Cases(Case one) { push_back(std::move(one)); }
    Cases(std::initializer_list<Cases> parts) {
        for (const Cases& part : parts) insert(end(), part.begin(), part.end());
    }
};

// The rows make(value) for each value, in order.
template <typename Values, typename Make>
Cases sweep(const Values& values, Make make) {
    Cases all;
    for (const auto& value : values) all = {all, make(value)};
    return all;
}
template <typename T, typename Make>
Cases sweep(std::initializer_list<T> values, Make make) {
    return sweep<std::initializer_list<T>>(values, make);
}

// The subsystem tables, in the order they run.
Cases facade_cases();
Cases pixel_cases();
Cases blur_cases();
Cases styles_cases();
Cases frame_cases();

// Calls fn(args...) and records its result if that is an integer or bool.
template <typename Fn, typename... Args>
void call(Recorder& out, Fn& fn, Args... args) {
    if constexpr (std::is_integral_v<std::invoke_result_t<Fn&, Args...>>) {
        out.i32(static_cast<std::int32_t>(fn(args...)));
    } else {
        fn(args...);
    }
}

// A buffer meant only to be read: 0 when it is as it was, else 1 and its bytes.
void record_read_only(Recorder& out, const Bytes& after, const Bytes& before);
// The photo of a scene, its materials checked against the original's.
void record_scene(Recorder& out, const Scene& s, const Scene& original);

// The shapes. custom: fn(Recorder&) records what it likes.
inline Case custom(std::string name, std::function<void(Recorder&)> fn,
                   Needs needs = Needs::nothing) {
    return {std::move(name), std::move(fn), needs};
}

// fn(out, scene) on a fresh copy of every scene, then the scene recorded.
template <typename Fn>
Case scene(std::string name, Fn fn, Needs needs = Needs::nothing) {
    return {std::move(name),
            [fn](Recorder& out) mutable {
                for (const Scene& original : scenes()) {
                    Scene s = original;
                    fn(out, s);
                    record_scene(out, s, original);
                }
            },
            needs};
}

// fn(photo, width, height) on every scene.
template <typename Fn>
Case image(std::string name, Fn fn, Needs needs = Needs::nothing) {
    return scene(
        std::move(name),
        [fn](Recorder& out, Scene& s) mutable { call(out, fn, s.photo.data(), s.width, s.height); },
        needs);
}

// fn(photo, material1, width, height).
template <typename Fn>
Case material(std::string name, Fn fn) {
    return scene(std::move(name), [fn](Recorder& out, Scene& s) mutable {
        call(out, fn, s.photo.data(), s.material1.data(), s.width, s.height);
    });
}

// fn(photo, material1, width, height, blend tables); the tables are only read.
template <typename Fn>
Case tables(std::string name, Fn fn) {
    return scene(std::move(name), [fn](Recorder& out, Scene& s) mutable {
        Bytes tables = blend_tables();
        call(out, fn, s.photo.data(), s.material1.data(), s.width, s.height, tables.data());
        record_read_only(out, tables, blend_tables());
    });
}

// fn(pixel) on every pixel of channel_pairs().base, in memory order.
template <typename Fn>
Case pixel(std::string name, Fn fn, Needs needs = Needs::nothing) {
    return {std::move(name),
            [fn](Recorder& out) mutable {
                Bytes image = channel_pairs().base;
                for (std::size_t at = 0; at < image.size(); at += 4) call(out, fn, &image[at]);
                out.image(image, ChannelPairs::kSide, ChannelPairs::kSide);
            },
            needs};
}

// fn(red, green, blue, out) for each of the 65536 colours of
// channel_pairs().base (red, green, blue = bytes 2, 1, 0); fn records.
template <typename Fn>
Case colour(std::string name, Fn fn) {
    return custom(std::move(name), [fn](Recorder& out) mutable {
        const Bytes& colours = channel_pairs().base;
        for (std::size_t at = 0; at < colours.size(); at += 4)
            fn(colours[at + 2], colours[at + 1], colours[at], out);
    });
}

// The opacities every blend runs at: none, the single-precision 0.15 and 0.6
// the presets use, quarter steps, 0.8, full, and the out-of-range -0.5 and
// 1.5 whose results the arithmetic still defines.
constexpr double kBlendOpacities[] = {
    -0.5, 0.0, 0.15000000596046448, 0.25, 0.5, 0.6000000238418579, 0.8, 1.0, 1.5};

// fn(base pixel, blend pixel, opacity) over the channel pairs at each
// opacity. Blends without an opacity, or with a float one, take a lambda.
template <typename Fn>
Case blend(std::string name, Fn fn) {
    return custom(std::move(name), [fn](Recorder& out) mutable {
        for (const double opacity : kBlendOpacities) {
            Bytes base = channel_pairs().base, over = channel_pairs().blend;
            for (std::size_t at = 0; at < base.size(); at += 4)
                call(out, fn, &base[at], &over[at], opacity);
            out.f64(opacity);
            out.image(base, ChannelPairs::kSide, ChannelPairs::kSide);
            out.image(over, ChannelPairs::kSide, ChannelPairs::kSide);
        }
    });
}

// The committed list: "name digest" lines sorted by name under a '#' header.
using DigestList = std::map<std::string, std::string>;
// Skips '#' and blank lines; throws std::runtime_error naming a malformed
// or repeated line.
DigestList parse_digest_list(std::istream& in);
void write_digest_list(std::ostream& out, const DigestList& digests);
// One line per difference: "changed NAME: listed D1, computed D2",
// "new NAME: not in the list", "gone NAME: listed, no longer computed".
// Names in skipped are neither new nor gone.
std::vector<std::string> compare_digests(const DigestList& listed, const DigestList& computed,
                                         const std::set<std::string>& skipped);

}  // namespace qtzq_golden

#endif  // QTZQ_TESTS_GOLDEN_GOLDEN_H
