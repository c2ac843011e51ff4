// qtzq apply, end to end: results equal direct library calls, for every
// effect, given inputs of every overload and many inputs at once.
#include <qtzqeffect/facade.h>

#include <ctime>
#include <functional>

#include "qtzq_app/catalogue.h"
#include "qtzq_app/effect_inputs.h"
#include "qtzq_app/effect_runner.h"
#include "tools/tool_harness.h"

namespace qtzq_tool_test {
namespace {

using qtzq_app::EffectInfo;
using ApplyTest = ToolTest;

// The effect run in this process with the generated default inputs.
BgraImage with_defaults(const EffectInfo& info, BgraImage photo) {
    std::vector<BgraImage> materials;
    for (int slot = 0; slot < qtzq_app::material_count(info.overload); ++slot)
        materials.push_back(qtzq_app::default_material(info, slot, photo.width, photo.height));
    std::vector<unsigned char> tables;
    if (qtzq_app::needs_tables(info.overload)) tables = qtzq_app::default_table_set(info);
    qtzq_app::run_effect(info, photo, materials, tables.empty() ? nullptr : tables.data());
    return photo;
}

// Every effect with its default inputs. The clock-seeded ones draw their
// grain from the current second, so the tool and the direct call must run
// within the same one.
TEST_F(ApplyTest, EveryEffectWithDefaultsEqualsTheDirectCall) {
    for (const EffectInfo& info : qtzq_app::catalogue()) {
        const BgraImage photo = sample_photo(23, 17, unsigned(info.id));
        save_png("in.png", photo);
        BgraImage expected;
        for (int attempt = 0; attempt < 10; ++attempt) {
            const std::time_t start = std::time(nullptr);
            run_ok({"apply", std::to_string(info.id), path("in.png"), "-o", path("out.png")});
            expected = with_defaults(info, photo);
            if (std::time(nullptr) == start) break;
        }
        EXPECT_EQ(load_png("out.png").pixels, expected.pixels) << info.id;
    }
}

// One effect of every overload with materials and tables from files, each
// compared with the facade's overload called directly.
TEST_F(ApplyTest, GivenMaterialsAndTablesReachTheFacadeUnchanged) {
    const int w = 16, h = 12;
    const BgraImage photo = sample_photo(w, h, 3, true);
    save_png("in.png", photo);
    std::vector<BgraImage> given;
    std::vector<std::string> flags;
    for (unsigned m = 0; m < 3; ++m) {
        given.push_back(sample_photo(w, h, 4 + m));
        save_png("m" + std::to_string(m) + ".png", given.back());
        flags.insert(flags.end(), {"-m", path("m" + std::to_string(m) + ".png")});
    }
    run_ok({"tables", "screen", "softlight:0.5", "multiply", "-o", path("t.bin")});
    std::vector<unsigned char> tables = load_bytes("t.bin");
    Qtzqeffect fx;
    std::vector<BgraImage> m;  // fresh copies of the materials for each case
    unsigned char* t = tables.data();
    const std::vector<std::tuple<int, int, std::function<void(unsigned char*)>>> cases = {
        {1044, 1, [&](auto* p) { fx.effect(1044, p, m[0].data(), w, h); }},
        {1041, 2, [&](auto* p) { fx.effect(1041, p, m[0].data(), m[1].data(), w, h); }},
        {1048, 3,
         [&](auto* p) { fx.effect(1048, p, m[0].data(), m[1].data(), m[2].data(), w, h); }},
        {1032, 2, [&](auto* p) { fx.effect(1032, p, m[0].data(), m[1].data(), w, h, t, 0); }},
    };
    for (const auto& [id, count, call] : cases) {
        std::vector<std::string> args = {"apply", std::to_string(id), path("in.png"), "-o",
                                         path("out.png")};
        args.insert(args.end(), flags.begin(), flags.begin() + 2 * count);
        if (id == 1032) args.insert(args.end(), {"--tables", path("t.bin")});
        run_ok(args);
        BgraImage expected = photo;
        m = given;
        call(expected.data());
        EXPECT_EQ(load_png("out.png").pixels, expected.pixels) << id;
    }
}

TEST_F(ApplyTest, ManyInputsInParallelEachEqualTheirDirectCall) {
    std::vector<std::string> args = {"apply", "StyleGray", "--out-dir", path("out"), "-j", "4"};
    for (int i = 0; i < 8; ++i) {
        save_png("in" + std::to_string(i) + ".png", sample_photo(7 + i, 5 + i, unsigned(i)));
        args.push_back(path("in" + std::to_string(i) + ".png"));
    }
    const RunResult result = run(args);
    ASSERT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(result.err, "");  // not a terminal: no progress bar
    for (int i = 0; i < 8; ++i) {
        BgraImage expected = sample_photo(7 + i, 5 + i, unsigned(i));
        Qtzqeffect().effect(1101, expected.data(), expected.width, expected.height);
        EXPECT_EQ(load_png("out/in" + std::to_string(i) + ".png").pixels, expected.pixels) << i;
    }
}

}  // namespace
}  // namespace qtzq_tool_test
