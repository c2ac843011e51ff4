// qtzq apply, end to end: results equal direct library calls, for every
// effect, given inputs of every overload and many inputs at once.
#include <qtzqeffect/facade.h>

#include <cctype>
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

// Every effect, named by its preset in capitals, with its default inputs;
// the clock-seeded ones draw their grain from the current second, so the
// tool and the direct call must run within the same one.
TEST_F(ApplyTest, EveryEffectWithDefaultsEqualsTheDirectCall) {
    for (const EffectInfo& info : qtzq_app::catalogue()) {
        const BgraImage photo = sample_photo(23, 17, unsigned(info.id));
        save_png("in.png", photo);
        std::string name = info.preset;
        for (char& c : name) c = char(std::toupper(static_cast<unsigned char>(c)));
        BgraImage expected;
        std::time_t start = 0;
        for (int attempt = 0; attempt < 10; ++attempt) {
            start = std::time(nullptr);
            const RunResult result = run({"apply", name, path("in.png"), "-o", path("out.png")});
            ASSERT_EQ(result.status, 0) << name << ": " << result.err;
            expected = with_defaults(info, photo);
            if (std::time(nullptr) == start) break;
        }
        EXPECT_EQ(load_png("out.png").pixels, expected.pixels) << info.id;
    }
}

using Call = std::function<void(BgraImage&, std::vector<BgraImage>&, unsigned char*)>;

// One effect of every overload with materials and tables from files, each
// compared with the facade's overload called directly.
TEST_F(ApplyTest, GivenMaterialsAndTablesReachTheFacadeUnchanged) {
    const BgraImage photo = opaque(sample_photo(16, 12, 3));
    save_png("in.png", photo);
    std::vector<BgraImage> given;
    for (unsigned m = 0; m < 3; ++m) {
        given.push_back(sample_photo(16, 12, 4 + m));
        save_png("m" + std::to_string(m) + ".png", given.back());
    }
    run_ok({"tables", "screen", "softlight:0.5", "multiply", "-o", path("t.bin")});
    std::vector<unsigned char> tables = load_bytes("t.bin");
    const int w = 16, h = 12;
    const std::vector<std::tuple<int, int, bool, Call>> cases = {
        {1020, 0, false, [&](BgraImage& p, auto&, auto*) { Qtzqeffect().effect(1020, p.data(), w, h); }},
        {1044, 1, false, [&](BgraImage& p, auto& m, auto*) {
             Qtzqeffect().effect(1044, p.data(), m[0].data(), w, h); }},
        {1041, 2, false, [&](BgraImage& p, auto& m, auto*) {
             Qtzqeffect().effect(1041, p.data(), m[0].data(), m[1].data(), w, h); }},
        {1048, 3, false, [&](BgraImage& p, auto& m, auto*) {
             Qtzqeffect().effect(1048, p.data(), m[0].data(), m[1].data(), m[2].data(), w, h); }},
        {1032, 2, true, [&](BgraImage& p, auto& m, unsigned char* t) {
             Qtzqeffect().effect(1032, p.data(), m[0].data(), m[1].data(), w, h, t, 0); }},
    };
    for (const auto& [id, count, with_tables, call] : cases) {
        std::vector<std::string> args = {"apply", std::to_string(id), path("in.png")};
        for (int m = 0; m < count; ++m) args.insert(args.end(), {"-m", path("m" + std::to_string(m) + ".png")});
        if (with_tables) args.insert(args.end(), {"--tables", path("t.bin")});
        args.insert(args.end(), {"-o", path("out.png")});
        run_ok(args);
        BgraImage expected = photo;
        std::vector<BgraImage> materials = given;
        call(expected, materials, tables.data());
        EXPECT_EQ(load_png("out.png").pixels, expected.pixels) << id;
    }
}

TEST_F(ApplyTest, ManyInputsInParallelEachEqualTheirDirectCall) {
    std::vector<std::string> args = {"apply", "StyleGray"};
    std::vector<BgraImage> photos;
    for (int i = 0; i < 8; ++i) {
        photos.push_back(sample_photo(7 + i, 5 + i, unsigned(10 + i)));
        save_png("in" + std::to_string(i) + ".png", photos.back());
        args.push_back(path("in" + std::to_string(i) + ".png"));
    }
    args.insert(args.end(), {"--out-dir", path("out"), "-j", "4"});
    const RunResult result = run(args);
    ASSERT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(result.err, "");  // not a terminal: no progress bar
    for (int i = 0; i < 8; ++i) {
        BgraImage expected = photos[std::size_t(i)];
        Qtzqeffect().effect(1101, expected.data(), expected.width, expected.height);
        EXPECT_EQ(load_png("out/in" + std::to_string(i) + ".png").pixels, expected.pixels) << i;
    }
}

TEST_F(ApplyTest, NotesNameGeneratedScaledAndDroppedInputs) {
    save_png("in.png", sample_photo(20, 20));
    save_png("small.png", sample_photo(10, 10, 9));
    const RunResult result = run({"apply", "1043", path("in.png"), "-m", path("small.png"),
                                  "-o", path("out.jpg")});
    ASSERT_EQ(result.status, 0) << result.err;
    EXPECT_NE(result.err.find("scaled material " + path("small.png") + " from 10x10 to 20x20"),
              std::string::npos) << result.err;
    EXPECT_NE(result.err.find("JPEG keeps no alpha"), std::string::npos) << result.err;
    const RunResult defaults = run({"apply", "1038", path("in.png"), "-o", path("out.png")});
    EXPECT_NE(defaults.err.find("generated paper on white"), std::string::npos) << defaults.err;
}

}  // namespace
}  // namespace qtzq_tool_test
