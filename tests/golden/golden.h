// The golden-digest harness: every exported function, preset and facade id
// runs on fixed generated inputs; everything a case produces is reduced to
// one SHA-256 and compared with the committed digests.txt.
//
// A case is one row (name, shape, callable) in the table of its subsystem,
// the Cases function of a *_cases.cpp file. Adding a function is one row:
//
//     image("styles.StyleFilm", StyleFilm),
//     blend("pixel.ScreenEx", ScreenEx),
//     image_sweep("pixel.Bright", Bright, {-40, 0, 25}),  // pixel.Bright.-40, ...
//
// A shape runs the callable on fresh copies of the fixed inputs and records
// every buffer it was handed (so a write to a buffer meant only to be read
// shows too) and its result if that is an integer or bool.
#ifndef QTZQ_TESTS_GOLDEN_GOLDEN_H
#define QTZQ_TESTS_GOLDEN_GOLDEN_H

#include <array>
#include <cstdint>
#include <cstring>
#include <functional>
#include <iosfwd>
#include <map>
#include <set>
#include <string>
#include <tuple>
#include <type_traits>
#include <vector>

namespace qtzq_golden {

using Bytes = std::vector<unsigned char>;
using Px = unsigned char*;

// Feeds SHA-256 a host-independent serialisation: integers and IEEE-754 bit
// patterns as little-endian bytes of their width, images as width, height,
// then their bytes.
class Recorder {
   public:
    void bytes(const unsigned char* data, std::size_t size);
    void bytes(const Bytes& data) { bytes(data.data(), data.size()); }
    void i32(std::int32_t value) { little_endian(std::uint32_t(value), 4); }
    void u32(std::uint32_t value) { little_endian(value, 4); }
    void f32(float value) { little_endian(bits<std::uint32_t>(value), 4); }
    void f64(double value) { little_endian(bits<std::uint64_t>(value), 8); }
    void image(const unsigned char* pixels, int width, int height);
    void image(const Bytes& pixels, int width, int height) { image(pixels.data(), width, height); }
    std::string hex_digest();  // pads the message: the recorder is spent afterwards

    template <typename Bits, typename Value>
    static Bits bits(Value value) {
        static_assert(sizeof(Bits) == sizeof(Value), "IEEE-754 single and double expected");
        Bits bits;
        std::memcpy(&bits, &value, sizeof bits);
        return bits;
    }

   private:
    void little_endian(std::uint64_t value, int size);
    void compress();

    std::array<std::uint32_t, 8> state_ = {0x6a09e667, 0xbb67ae85, 0x3c6ef372, 0xa54ff53a,
                                           0x510e527f, 0x9b05688c, 0x1f83d9ab, 0x5be0cd19};
    std::array<unsigned char, 64> block_{};
    std::size_t used_ = 0;
    std::uint64_t length_ = 0;
};

// The fixed inputs (inputs.cpp).
struct Scene {
    int width, height;
    Bytes photo, material1, material2, material3;
    Px p() { return photo.data(); }
    Px m1() { return material1.data(); }
    Px m2() { return material2.data(); }
    Px m3() { return material3.data(); }
};
// 1x1, 1x6, 6x1, 2x2, 3x5, 13x7, 97x61 and 256x256 (its photo is the base
// of channel_pairs()). Scene shapes run on copies of each, in this order.
const std::vector<Scene>& scenes();
Bytes photo(int width, int height);
Bytes material_image(int width, int height, int which);  // which = 1, 2, 3
// 256x256 base and blend images: each colour channel of a pixel pair holds
// one pair of byte values, each of the 65536 exactly once.
const std::array<Bytes, 2>& channel_pairs();
const Bytes& blend_tables();  // three asymmetric maps at offsets 4, 65543, 131082

// named("pixel.Light", 30, -20) is "pixel.Light.30_-20" (shortest numbers).
std::string label(double value);
template <typename... Values>
std::string named(std::string name, Values... values) {
    char separator = '.';
    ((name += separator + label(values), separator = '_'), ...);
    return name;
}

// Needs::rand: the case draws from rand(), which is reseeded before every
// case. glibc's sequence is the same on x86-64 and armhf; with another C
// library such cases are skipped.
enum class Needs { nothing, rand };

struct Case {
    std::string name;
    std::function<void(Recorder&)> run;
    Needs needs = Needs::nothing;
};

// A table: its rows are cases or runs of cases.
struct Cases : std::vector<Case> {
    Cases() = default;
    Cases(Case one) { push_back(std::move(one)); }
    Cases(std::initializer_list<Cases> parts) {
        for (const Cases& part : parts) insert(end(), part.begin(), part.end());
    }
};
Cases facade_cases();
Cases pixel_cases();
Cases blur_cases();
Cases styles_cases();
Cases frame_cases();

// make(prefix.v1_v2..., v1, v2...) for each row: a value or a std::array.
template <typename Row, std::size_t N, typename Make>
Cases sweep(const std::string& prefix, const Row (&rows)[N], Make make) {
    Cases all;
    for (const Row& row : rows) {
        const auto with_name = [&](auto... v) { return make(named(prefix, v...), v...); };
        if constexpr (std::is_scalar_v<Row>) {
            all = {all, with_name(row)};
        } else {
            all = {all, std::apply(with_name, row)};
        }
    }
    return all;
}

// Calls fn(args...) and records its result if that is an integer or bool.
template <typename Fn, typename... Args>
void call(Recorder& out, Fn& fn, Args... args) {
    if constexpr (std::is_integral_v<std::invoke_result_t<Fn&, Args...>>) {
        out.i32(std::int32_t(fn(args...)));
    } else {
        fn(args...);
    }
}

// A buffer meant only to be read: 0 if it is as it was, else 1 and its bytes.
void record_read_only(Recorder& out, const Bytes& after, const Bytes& before);
// A scene's photo, and its materials checked against the original's.
void record_scene(Recorder& out, const Scene& s, const Scene& original);

// The shapes. custom: fn(Recorder&) records what it likes.
inline Case custom(std::string name, std::function<void(Recorder&)> fn, Needs n = Needs::nothing) {
    return {std::move(name), std::move(fn), n};
}
// fn(out, scene) on a fresh copy of every scene, then the scene recorded.
Case scene(std::string name, std::function<void(Recorder&, Scene&)> fn, Needs n = Needs::nothing);
// fn(photo, width, height) on every scene.
template <typename Fn>
Case image(std::string name, Fn fn, Needs n = Needs::nothing) {
    return scene(
        name, [fn](Recorder& out, Scene& s) mutable { call(out, fn, s.p(), s.width, s.height); },
        n);
}
// fn(photo, width, height, v1, v2...) for each row of values.
template <typename Fn, typename Row, std::size_t N>
Cases image_sweep(const std::string& prefix, Fn fn, const Row (&rows)[N]) {
    return sweep(prefix, rows, [fn](std::string name, auto... v) {
        return image(name, [=](Px p, int w, int h) { return fn(p, w, h, v...); });
    });
}
// fn(photo, material1, width, height).
template <typename Fn>
Case material(std::string name, Fn fn) {
    return scene(name, [fn](Recorder& out, Scene& s) mutable {
        call(out, fn, s.p(), s.m1(), s.width, s.height);
    });
}
// fn(pixel) on every pixel of the channel pairs' base, in memory order.
template <typename Fn>
Case pixel(std::string name, Fn fn, Needs n = Needs::nothing) {
    const auto run = [fn](Recorder& out) mutable {
        Bytes image = channel_pairs()[0];
        for (std::size_t at = 0; at < image.size(); at += 4) call(out, fn, &image[at]);
        out.image(image, 256, 256);
    };
    return custom(name, run, n);
}
// fn(red, green, blue, out) for each colour of the channel pairs' base
// (red, green, blue = bytes 2, 1, 0); fn records what it computes.
template <typename Fn>
Case colour(std::string name, Fn fn) {
    return custom(name, [fn](Recorder& out) mutable {
        const Bytes& colours = channel_pairs()[0];
        for (std::size_t at = 0; at < colours.size(); at += 4)
            fn(colours[at + 2], colours[at + 1], colours[at], out);
    });
}
// fn(base pixel, blend pixel, opacity) over the channel pairs at each
// opacity: none, the single-precision 0.15 and 0.6 the presets use, quarter
// steps, 0.8, full, and the out-of-range -0.5 and 1.5.
template <typename Fn>
Case blend(std::string name, Fn fn) {
    return custom(name, [fn](Recorder& out) mutable {
        for (const double opacity :
             {-0.5, 0.0, 0.15000000596046448, 0.25, 0.5, 0.6000000238418579, 0.8, 1.0, 1.5}) {
            std::array<Bytes, 2> pair = channel_pairs();
            for (std::size_t at = 0; at < pair[0].size(); at += 4)
                call(out, fn, &pair[0][at], &pair[1][at], opacity);
            out.f64(opacity);
            for (const Bytes& image : pair) out.image(image, 256, 256);
        }
    });
}
// The committed list: "name digest" lines sorted by name under a '#' header.
using DigestList = std::map<std::string, std::string>;
// Skips '#' and blank lines; throws std::runtime_error on a malformed or
// repeated line.
DigestList parse_digest_list(std::istream& in);
void write_digest_list(std::ostream& out, const DigestList& digests);
// "changed NAME: listed D1, computed D2", "new NAME: not in the list",
// "gone NAME: listed, no longer computed"; skipped names are not gone.
std::vector<std::string> compare_digests(const DigestList& listed, const DigestList& computed,
                                         const std::set<std::string>& skipped);

}  // namespace qtzq_golden

#endif  // QTZQ_TESTS_GOLDEN_GOLDEN_H
