// Golden cases of the facade: every effect id of every effect overload,
// the ids each overload must ignore, and the other entry points.
#include <climits>
#include <string>
#include <vector>

#include "all_cases.h"
#include "families.h"
#include "qtzqeffect/facade.h"

namespace qtzq_golden {

namespace {

// One effect overload: the ids its catalogue table holds (independent of the
// library's own table, so a wrongly wired id shows) and how to call it on a
// scene.
struct Overload {
    const char* name;
    std::vector<int> ids;
    int (*call)(Qtzqeffect& effects, int id, Scene& s, unsigned char* tables);
};

const std::vector<Overload>& overloads() {
    static const std::vector<Overload> all = {
        {"effect_image",
         {1019, 1020, 1021, 1022, 1023, 1027, 1028, 1033, 1034, 1035, 1039, 1040, 1101},
         [](Qtzqeffect& e, int id, Scene& s, unsigned char*) {
             return e.effect(id, s.photo.data(), s.width, s.height);
         }},
        {"effect_material",
         {1026, 1030, 1042, 1043, 1044, 1045, 1046, 1047, 1102, 1104},
         [](Qtzqeffect& e, int id, Scene& s, unsigned char*) {
             return e.effect(id, s.photo.data(), s.material1.data(), s.width, s.height);
         }},
        {"effect_materials2",
         {1018, 1041},
         [](Qtzqeffect& e, int id, Scene& s, unsigned char*) {
             return e.effect(id, s.photo.data(), s.material1.data(), s.material2.data(), s.width,
                             s.height);
         }},
        {"effect_materials3",
         {1048},
         [](Qtzqeffect& e, int id, Scene& s, unsigned char*) {
             return e.effect(id, s.photo.data(), s.material1.data(), s.material2.data(),
                             s.material3.data(), s.width, s.height);
         }},
        {"effect_tables",
         {1031, 1032, 1038},
         [](Qtzqeffect& e, int id, Scene& s, unsigned char* tables) {
             return e.effect(id, s.photo.data(), s.material1.data(), s.material2.data(), s.width,
                             s.height, tables, 0);
         }},
        {"effect_empty_material",
         {},
         [](Qtzqeffect& e, int id, Scene& s, unsigned char*) {
             return e.effect(id, s.photo.data(), s.width, s.height, s.material1.data(), 0);
         }},
        {"effect_empty_materials2",
         {},
         [](Qtzqeffect& e, int id, Scene& s, unsigned char*) {
             return e.effect(id, s.photo.data(), s.material1.data(), s.width, s.height,
                             s.material2.data(), 0);
         }},
    };
    return all;
}

// Runs one id through one overload on a fresh copy of a scene; records the
// result and every buffer the overload was handed.
void record_effect(Recorder& out, const Overload& overload, int id, const Scene& original) {
    Scene s = original;
    Bytes tables = blend_tables();
    Qtzqeffect effects;
    out.i32(overload.call(effects, id, s, tables.data()));
    record_scene(out, s, original);
    record_read_only(out, tables, blend_tables());
}

bool contains(const std::vector<int>& ids, int id) {
    for (const int known : ids) {
        if (known == id) return true;
    }
    return false;
}

// Every id an overload is probed with: the whole catalogue range and beyond,
// and the extremes of int.
std::vector<int> probe_ids() {
    std::vector<int> ids = {INT_MIN, -1, 0, 1};
    for (int id = 1000; id <= 1110; ++id) ids.push_back(id);
    ids.push_back(INT_MAX);
    return ids;
}

void add_effect_cases(CaseList& list, const Overload& overload) {
    const std::string prefix = std::string("facade.") + overload.name + ".";
    for (const int id : overload.ids) {
        custom_case(list, prefix + std::to_string(id), [&overload, id](Recorder& out) {
            for (const Scene& s : scenes()) record_effect(out, overload, id, s);
        });
    }
    // Ids of other tables and unknown ids must leave every buffer alone.
    custom_case(list, prefix + "other_ids", [&overload](Recorder& out) {
        const Scene& small = scenes()[5];  // 13x7
        for (const int id : probe_ids()) {
            if (!contains(overload.ids, id)) record_effect(out, overload, id, small);
        }
    });
}

// Records a buffer the facade allocated (null or width x height pixels)
// and frees it.
void record_new_buffer(Recorder& out, unsigned char* buffer, int width, int height) {
    out.i32(buffer != nullptr);
    if (buffer) out.image(buffer, width, height);
    delete[] buffer;
}

// The entry points beside the dispatch: soft glow, two-step sharpening and
// colour mixing.
void add_entry_point_cases(CaseList& list) {
    for (const int radius : {0, 1, 5, 20}) {
        custom_case(list, "facade.WeakInit." + std::to_string(radius), [=](Recorder& out) {
            for (const Scene& original : scenes()) {
                Scene s = original;
                record_new_buffer(out,
                                  Qtzqeffect().WeakInit(s.photo.data(), s.width, s.height, radius),
                                  s.width, s.height);
                record_scene(out, s, original);
            }
        });
    }
    // Material 2 as the blurred copy, the red bytes of material 1 as weights.
    materials2_case(list, "facade.WeakProcess",
                    [](unsigned char* image, unsigned char* weight, unsigned char* blurred, int w,
                       int h) { return Qtzqeffect().WeakProcess(image, blurred, weight, w, h); });
    for (const float amount : {0.0f, 0.35f, 1.0f, 3.2f, -0.6f}) {
        custom_case(
            list, "facade.SharpInit.SharpProcess." + label(amount), [=](Recorder& out) {
                for (const Scene& original : scenes()) {
                    Scene s = original;
                    Qtzqeffect effects;
                    unsigned char* blurred = effects.SharpInit(s.photo.data(), s.width, s.height);
                    out.image(blurred, s.width, s.height);
                    out.i32(
                        effects.SharpProcess(s.photo.data(), blurred, s.width, s.height, amount));
                    record_new_buffer(out, blurred, s.width, s.height);
                    record_scene(out, s, original);
                }
            });
    }
    constexpr int kMixes[][3] = {{0, 0, 0}, {25, -10, 40}, {-40, 60, -80}, {10, 0, 255}};
    for (const auto& mix : kMixes) {
        const int a = mix[0], b = mix[1], saturation = mix[2];
        image_case(list,
                   "facade.ColorMixing." + std::to_string(a) + "_" + std::to_string(b) + "_" +
                       std::to_string(saturation),
                   [=](unsigned char* p, int w, int h) {
                       return Qtzqeffect().ColorMixing(p, w, h, a, b, saturation);
                   });
    }
}

}  // namespace

void add_facade_cases(CaseList& list) {
    for (const Overload& overload : overloads()) add_effect_cases(list, overload);

    image_case(list, "facade.sample", [](unsigned char* image, int width, int height) {
        return Qtzqeffect().sample(image, width, height);
    });
    custom_case(list, "facade.randInt", [](Recorder& out) {
        const int bounds[][2] = {{0, 100}, {5, 5}, {100, 0}, {INT_MIN, INT_MAX}};
        for (const auto& b : bounds) out.i32(Qtzqeffect().randInt(b[0], b[1]));
    });
    add_entry_point_cases(list);
}

}  // namespace qtzq_golden
