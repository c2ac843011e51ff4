// Every effect id of the catalogue through the facade, with the tool's
// generated default materials and blend table set, as an application
// would call it. Each also reports the peak scratch memory of one call.
// The effects that spend their time in blurs with fast paths have scalar
// twins, effect/ID/NAME/scalar, with the fast paths off.
#include <algorithm>
#include <iterator>
#include <string>
#include <vector>

#include "qtzq_app/catalogue.h"
#include "qtzq_app/effect_inputs.h"
#include "qtzq_app/effect_runner.h"

#include "bench_image.h"
#include "suites.h"
#include "timed_pass.h"

namespace qtzq_bench {
namespace {

using qtzq_app::EffectInfo;

// Ids with a scalar twin.
const int kScalarTwinIds[] = {1033, 1035, 1104};

bool has_scalar_twin(int id) {
    return std::find(std::begin(kScalarTwinIds), std::end(kScalarTwinIds), id) !=
           std::end(kScalarTwinIds);
}

// Materials and tables of one effect at the photo's size. Only the effect
// being timed keeps its inputs: 12-megapixel materials are large.
struct GeneratedInputs {
    int id = -1;
    std::vector<BgraImage> materials;
    std::vector<unsigned char> tables;
};

GeneratedInputs& inputs_for(const EffectInfo& info) {
    static GeneratedInputs current;
    if (current.id == info.id) return current;
    const BenchImage& photo = bench_image();
    current = GeneratedInputs{};
    for (int slot = 0; slot < qtzq_app::material_count(info.overload); ++slot)
        current.materials.push_back(
            qtzq_app::default_material(info, slot, photo.width(), photo.height()));
    if (qtzq_app::needs_tables(info.overload)) current.tables = qtzq_app::default_table_set(info);
    current.id = info.id;
    return current;
}

void time_effect(benchmark::State& state, const EffectInfo& info, bool scalar) {
    GeneratedInputs& inputs = inputs_for(info);
    unsigned char* tables = inputs.tables.empty() ? nullptr : inputs.tables.data();
    const Pass pass = [&](BgraImage& photo) {
        qtzq_app::run_effect(info, photo, inputs.materials, tables);
    };
    time_in_place(state, scalar ? on_scalar_path(pass) : pass, Memory::Measure);
}

}  // namespace

void register_effects() {
    for (const EffectInfo& info : qtzq_app::catalogue()) {
        const std::string name = "effect/" + std::to_string(info.id) + "/" + info.preset;
        add_benchmark(name, [&info](benchmark::State& state) { time_effect(state, info, false); });
        if (has_scalar_twin(info.id))
            add_benchmark(name + "/scalar",
                          [&info](benchmark::State& state) { time_effect(state, info, true); });
    }
}

}  // namespace qtzq_bench
