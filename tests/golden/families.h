// One helper per shape of library function. Adding a function to the
// golden digests is one line in the *_cases.cpp file of its subsystem:
//
//     image_case(list, "styles.StyleFilm", StyleFilm);
//     blend_case(list, "pixel.ScreenEx", ScreenEx);
//     image_case(list, "pixel.Light.30_-20",
//                [](unsigned char* p, int w, int h) { Light(p, w, h, 30, -20); });
//
// Each helper runs the function on fresh copies of the fixed inputs and
// records every buffer the function was handed (a write to a buffer that
// should only be read shows too), plus the function's result when it is an
// integer. Pointer results are not recorded (addresses differ per run).
// Functions that draw from rand() pass Needs::rand.
#ifndef QTZQ_TESTS_GOLDEN_FAMILIES_H
#define QTZQ_TESTS_GOLDEN_FAMILIES_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <type_traits>
#include <utility>

#include "case_list.h"
#include "inputs.h"
#include "recorder.h"

namespace qtzq_golden {

// A parameter value as it appears in a case name: shortest form, "0.5",
// "-3", "1e+10".
std::string label(double value);

// Calls fn(args...) and records its result if it is an integer or bool.
template <typename Fn, typename... Args>
void call_and_record(Recorder& out, Fn& fn, Args&&... args) {
    using Result = std::invoke_result_t<Fn&, Args...>;
    if constexpr (std::is_integral_v<Result>) {
        out.i32(static_cast<std::int32_t>(fn(std::forward<Args>(args)...)));
    } else {
        fn(std::forward<Args>(args)...);
    }
}

// Anything else: fn(Recorder&) records what it likes.
template <typename Fn>
void custom_case(CaseList& list, const std::string& name, Fn fn, Needs needs = Needs::nothing) {
    list.add(name, needs, fn);
}

// A buffer the function is meant only to read: a 0 when it is as it was,
// else a 1 and its bytes. Equivalent to recording it whole, but cheaper for
// the large read-only inputs.
inline void record_read_only(Recorder& out, const Bytes& after, const Bytes& before) {
    const bool unchanged = after == before;
    out.i32(unchanged ? 0 : 1);
    if (!unchanged) out.bytes(after);
}

// Records the photo of a scene and checks its materials against the
// originals.
inline void record_scene(Recorder& out, const Scene& s, const Scene& original) {
    out.image(s.photo, s.width, s.height);
    record_read_only(out, s.material1, original.material1);
    record_read_only(out, s.material2, original.material2);
    record_read_only(out, s.material3, original.material3);
}

// call(out, scene) on a fresh copy of every scene, then the scene recorded.
template <typename Call>
void scene_case(CaseList& list, const std::string& name, Needs needs, Call call) {
    list.add(name, needs, [call](Recorder& out) mutable {
        for (const Scene& original : scenes()) {
            Scene s = original;
            call(out, s);
            record_scene(out, s, original);
        }
    });
}

// fn(image, width, height) on the photo of every scene.
template <typename Fn>
void image_case(CaseList& list, const std::string& name, Fn fn, Needs needs = Needs::nothing) {
    scene_case(list, name, needs, [fn](Recorder& out, Scene& s) mutable {
        call_and_record(out, fn, s.photo.data(), s.width, s.height);
    });
}

// fn(image, material, width, height).
template <typename Fn>
void material_case(CaseList& list, const std::string& name, Fn fn, Needs needs = Needs::nothing) {
    scene_case(list, name, needs, [fn](Recorder& out, Scene& s) mutable {
        call_and_record(out, fn, s.photo.data(), s.material1.data(), s.width, s.height);
    });
}

// fn(image, material1, material2, width, height).
template <typename Fn>
void materials2_case(CaseList& list, const std::string& name, Fn fn,
                     Needs needs = Needs::nothing) {
    scene_case(list, name, needs, [fn](Recorder& out, Scene& s) mutable {
        call_and_record(out, fn, s.photo.data(), s.material1.data(), s.material2.data(), s.width,
                        s.height);
    });
}

// fn(image, material1, material2, material3, width, height).
template <typename Fn>
void materials3_case(CaseList& list, const std::string& name, Fn fn,
                     Needs needs = Needs::nothing) {
    scene_case(list, name, needs, [fn](Recorder& out, Scene& s) mutable {
        call_and_record(out, fn, s.photo.data(), s.material1.data(), s.material2.data(),
                        s.material3.data(), s.width, s.height);
    });
}

// fn(image, material1, material2, width, height, blend table set).
template <typename Fn>
void tables_case(CaseList& list, const std::string& name, Fn fn, Needs needs = Needs::nothing) {
    scene_case(list, name, needs, [fn](Recorder& out, Scene& s) mutable {
        Bytes tables = blend_tables();
        call_and_record(out, fn, s.photo.data(), s.material1.data(), s.material2.data(), s.width,
                        s.height, tables.data());
        record_read_only(out, tables, blend_tables());
    });
}

// fn(pixel) on every pixel of the channel-pair base image, in memory order.
template <typename Fn>
void pixel_case(CaseList& list, const std::string& name, Fn fn, Needs needs = Needs::nothing) {
    list.add(name, needs, [fn](Recorder& out) mutable {
        Bytes image = channel_pairs().base;
        for (std::size_t at = 0; at < image.size(); at += 4) call_and_record(out, fn, &image[at]);
        out.image(image, ChannelPairs::kSide, ChannelPairs::kSide);
    });
}

// fn(red, green, blue, out) for each of the 65536 colours of the
// channel-pair base image (red, green, blue = bytes 2, 1, 0): every value of
// each component, every pair of green and blue. fn records what it computes.
template <typename Fn>
void colour_case(CaseList& list, const std::string& name, Fn fn, Needs needs = Needs::nothing) {
    list.add(name, needs, [fn](Recorder& out) mutable {
        const Bytes& colours = channel_pairs().base;
        for (std::size_t at = 0; at < colours.size(); at += 4)
            fn(colours[at + 2], colours[at + 1], colours[at], out);
    });
}

// The opacities every blend runs at: none, the single-precision 0.15 and
// 0.6 the presets use, quarter steps, 0.8, full, and the out-of-range
// -0.5 and 1.5 whose results the arithmetic still defines.
constexpr double kBlendOpacities[] = {
    -0.5, 0.0, 0.15000000596046448, 0.25, 0.5, 0.6000000238418579, 0.8, 1.0, 1.5};

// fn(base pixel, blend pixel, opacity) over the channel pairs (every pair of
// byte values in every colour channel) at each of kBlendOpacities. Blends
// without an opacity, or with a float one, are adapted with a lambda.
template <typename Fn>
void blend_case(CaseList& list, const std::string& name, Fn fn, Needs needs = Needs::nothing) {
    list.add(name, needs, [fn](Recorder& out) mutable {
        for (const double opacity : kBlendOpacities) {
            Bytes base = channel_pairs().base;
            Bytes blend = channel_pairs().blend;
            for (std::size_t at = 0; at < base.size(); at += 4)
                call_and_record(out, fn, &base[at], &blend[at], opacity);
            out.f64(opacity);
            out.image(base, ChannelPairs::kSide, ChannelPairs::kSide);
            out.image(blend, ChannelPairs::kSide, ChannelPairs::kSide);
        }
    });
}

}  // namespace qtzq_golden

#endif  // QTZQ_TESTS_GOLDEN_FAMILIES_H
