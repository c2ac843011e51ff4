// Golden cases of the facade: every effect id of every effect overload, the
// ids each overload must ignore, and the other entry points.
#include <algorithm>
#include <climits>
#include <vector>

#include "golden.h"
#include "qtzqeffect/facade.h"

namespace qtzq_golden {

namespace {

// One effect overload: the ids its catalogue table holds (independent of the
// library's own table, so a wrongly wired id shows) and how to call it.
struct Overload {
    const char* name;
    std::vector<int> ids;
    int (*call)(Qtzqeffect& e, int id, Scene& s, Px tables);
};

const Overload kOverloads[] = {
    {"effect_image",
     {1019, 1020, 1021, 1022, 1023, 1027, 1028, 1033, 1034, 1035, 1039, 1040, 1101},
     [](auto& e, int id, auto& s, Px) { return e.effect(id, s.p(), s.width, s.height); }},
    {"effect_material",
     {1026, 1030, 1042, 1043, 1044, 1045, 1046, 1047, 1102, 1104},
     [](auto& e, int id, auto& s, Px) { return e.effect(id, s.p(), s.m1(), s.width, s.height); }},
    {"effect_materials2",
     {1018, 1041},
     [](auto& e, int id, auto& s, Px) {
         return e.effect(id, s.p(), s.m1(), s.m2(), s.width, s.height);
     }},
    {"effect_materials3",
     {1048},
     [](auto& e, int id, auto& s, Px) {
         return e.effect(id, s.p(), s.m1(), s.m2(), s.m3(), s.width, s.height);
     }},
    {"effect_tables",
     {1031, 1032, 1038},
     [](auto& e, int id, auto& s, Px tables) {
         return e.effect(id, s.p(), s.m1(), s.m2(), s.width, s.height, tables, 0);
     }},
    {"effect_empty_material",
     {},
     [](auto& e, int id, auto& s, Px) {
         return e.effect(id, s.p(), s.width, s.height, s.m1(), 0);
     }},
    {"effect_empty_materials2",
     {},
     [](auto& e, int id, auto& s, Px) {
         return e.effect(id, s.p(), s.m1(), s.width, s.height, s.m2(), 0);
     }},
};

// One id through one overload on a fresh copy of a scene: the result and
// every buffer the overload was handed.
void record_effect(Recorder& out, const Overload& overload, int id, const Scene& original) {
    Scene s = original;
    Bytes tables = blend_tables();
    Qtzqeffect effects;
    out.i32(overload.call(effects, id, s, tables.data()));
    record_scene(out, s, original);
    record_read_only(out, tables, blend_tables());
}

// The clock-seeded presets (1021 StyleRetro, 1039 StyleLiuJin) draw grain
// from rand(), whose sequence differs between C libraries.
Needs needs_of(int id) { return id == 1021 || id == 1039 ? Needs::rand : Needs::nothing; }

// Every id of the overload on every scene; then, on the 13x7 scene, ids of
// other tables and unknown ones (the catalogue range and beyond, the
// extremes of int), which must leave every buffer alone.
Cases effect_cases(const Overload& o) {
    const std::string prefix = std::string("facade.") + o.name;
    Cases cases;
    for (const int id : o.ids) {
        cases = {cases, custom(named(prefix, id), [&o, id](Recorder& out) {
                     for (const Scene& s : scenes()) record_effect(out, o, id, s);
                 }, needs_of(id))};
    }
    return {cases, custom(prefix + ".other_ids", [&o](Recorder& out) {
                std::vector<int> probes = {INT_MIN, -1, 0, 1};
                for (int id = 1000; id <= 1110; ++id) probes.push_back(id);
                probes.push_back(INT_MAX);
                for (const int id : probes) {
                    if (std::find(o.ids.begin(), o.ids.end(), id) == o.ids.end())
                        record_effect(out, o, id, scenes()[5]);
                }
            })};
}

// A buffer the facade allocated (null or width x height pixels); freed.
void record_new_buffer(Recorder& out, unsigned char* buffer, int width, int height) {
    out.i32(buffer != nullptr);
    if (buffer) out.image(buffer, width, height);
    delete[] buffer;
}

constexpr std::array<int, 3> kMixes[] = {{0, 0, 0}, {25, -10, 40}, {-40, 60, -80}, {10, 0, 255}};

}  // namespace

Cases facade_cases() {
    Cases cases;
    for (const Overload& overload : kOverloads) cases = {cases, effect_cases(overload)};
    return {
        cases,
        image("facade.sample", [](Px p, int w, int h) { return Qtzqeffect().sample(p, w, h); }),
        custom("facade.randInt",
               [](Recorder& out) {
                   for (const auto& [low, high] :
                        {std::pair{0, 100}, {5, 5}, {100, 0}, {INT_MIN, INT_MAX}})
                       out.i32(Qtzqeffect().randInt(low, high));
               }),
        // Soft glow, two-step sharpening and colour mixing.
        sweep("facade.WeakInit", {0, 1, 5, 20},
              [](std::string name, int radius) {
                  return scene(name, [=](Recorder& out, Scene& s) {
                      Px glow = Qtzqeffect().WeakInit(s.p(), s.width, s.height, radius);
                      record_new_buffer(out, glow, s.width, s.height);
                  });
              }),
        // Material 2 as the blurred copy, the red bytes of material 1 as weights.
        scene("facade.WeakProcess",
              [](Recorder& out, Scene& s) {
                  out.i32(Qtzqeffect().WeakProcess(s.p(), s.m2(), s.m1(), s.width, s.height));
              }),
        sweep("facade.SharpInit.SharpProcess", {0.0f, 0.35f, 1.0f, 3.2f, -0.6f},
              [](std::string name, float amount) {
                  return scene(name, [=](Recorder& out, Scene& s) {
                      Qtzqeffect effects;
                      Px blurred = effects.SharpInit(s.p(), s.width, s.height);
                      out.image(blurred, s.width, s.height);
                      out.i32(effects.SharpProcess(s.p(), blurred, s.width, s.height, amount));
                      record_new_buffer(out, blurred, s.width, s.height);
                  });
              }),
        image_sweep(
            "facade.ColorMixing",
            [](Px p, int w, int h, int a, int b, int saturation) {
                return Qtzqeffect().ColorMixing(p, w, h, a, b, saturation);
            },
            kMixes),
    };
}

}  // namespace qtzq_golden
