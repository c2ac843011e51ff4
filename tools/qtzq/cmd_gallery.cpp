// qtzq gallery: every effect of the catalogue on one photo.
#include <atomic>
#include <filesystem>
#include <iostream>

#include "qtzq_app/catalogue.h"
#include "qtzq_app/effect_inputs.h"
#include "qtzq_app/effect_runner.h"
#include "qtzq_app/image_file.h"
#include "qtzq_app/resample.h"
#include "qtzq_app/strength.h"
#include "qtzq_app/test_scene.h"

#include "args.h"
#include "commands.h"
#include "console.h"
#include "contact_sheet.h"
#include "html_index.h"
#include "parallel.h"

namespace qtzq_cli {

using namespace qtzq_app;

namespace {

namespace fs = std::filesystem;

const char* const kHelp =
    "usage: qtzq gallery [PHOTO] -o DIR [options]\n\n"
    "Applies every effect of the catalogue ('qtzq list') to PHOTO, or to a\n"
    "built-in generated scene (sky, skin tones, saturated patches, fine detail,\n"
    "a grey ramp) when no PHOTO is given, and writes into DIR (created):\n"
    "  original.png             the photo the effects start from\n"
    "  ID-PRESET.png            one image per effect\n"
    "  materials/ID-N-KIND.png  the generated materials used\n"
    "  contact-sheet.png        all of them as labelled thumbnails\n"
    "  index.html               a page showing everything\n"
    "Effects that need materials or blend tables get the generated defaults\n"
    "that 'qtzq apply' uses. An effect that leaves the photo unchanged (not in\n"
    "this build of the library) is marked as such.\n\n"
    "Options:\n"
    "  -o, --output DIR      the folder to write\n"
    "      --max-size N      shrink PHOTO to at most N pixels on its long side\n"
    "                        first (default 960; 0 keeps the full size)\n"
    "      --thumb-width N   contact sheet thumbnail width (default 200)\n"
    "      --columns N       contact sheet columns (default 6)\n"
    "      --strength P      every effect at P percent, 0..100 (default 100; see\n"
    "                        'qtzq apply --help')\n"
    "  -j, --jobs N          effects rendered at once (default: hardware threads)\n"
    "  -q, --quiet           no progress bar\n";

struct Rendered {
    BgraImage thumbnail;
    std::string file;
    bool changed = false;
    bool ok = false;
    std::vector<IndexLink> inputs;
};

std::string slug(const EffectInfo& info) {
    return std::to_string(info.id) + "-" + info.preset;
}

BgraImage load_source(const ParsedArgs& args, std::string& name) {
    if (args.positionals.empty()) {
        name = "built-in scene";
        return qtzq_app::make_test_scene();
    }
    BgraImage photo;
    std::string error;
    if (!read_image(args.positionals[0], photo, error)) throw RunError(error);
    name = fs::path(args.positionals[0]).filename().string();
    const int max_size = args.int_value("max-size", 960, 0, 1 << 20);
    if (max_size > 0 && (photo.width > max_size || photo.height > max_size)) {
        int w = 0, h = 0;
        fit_size(photo.width, photo.height, max_size, max_size, w, h);
        photo = scale_area(photo, w, h);
    }
    return photo;
}

// Renders one effect and writes its image and its generated materials.
Rendered render(const EffectInfo& info, const BgraImage& source, const fs::path& dir,
                int thumb_width, int strength, Console& console) {
    Rendered out;
    out.file = slug(info) + ".png";
    EffectInputs inputs(info, {}, "", false);
    std::vector<std::string> notes;
    std::vector<BgraImage> materials =
        inputs.materials_for(source.width, source.height, "the photo", notes);
    std::string error;
    for (std::size_t slot = 0; slot < materials.size(); ++slot) {
        const std::string file = "materials/" + slug(info) + "-" + std::to_string(slot + 1) + "-" +
                                 info.materials[slot].fallback.kind + ".png";
        if (!write_image((dir / file).string(), materials[slot], 92, error)) {
            console.error(error);
            return out;
        }
        out.inputs.push_back({std::string("material ") + std::to_string(slot + 1) + ": " +
                                  info.materials[slot].fallback.kind,
                              file});
    }
    BgraImage photo = source;
    run_effect(info, photo, materials, inputs.tables());
    out.changed = photo.pixels != source.pixels;
    mix_strength(source.pixels.data(), photo.data(), photo.pixels.size() / 4, strength);
    if (!write_image((dir / out.file).string(), photo, 92, error)) {
        console.error(error);
        return out;
    }
    const int thumb_height = std::max(1, int(double(photo.height) * thumb_width / photo.width + 0.5));
    out.thumbnail = scale_area(photo, thumb_width, thumb_height);
    out.ok = true;
    return out;
}

std::string description(const EffectInfo& info) {
    std::string text = std::string(info.look) + "; " + overload_signature(info.overload);
    if (needs_tables(info.overload))
        text += "; tables " + table_modes_text(info, ", ");
    return text;
}

}  // namespace

int run_gallery(const Words& words) {
    const ParsedArgs args = parse_args(words, {{"output", 'o', true, false},
                                               {"max-size", 0, true, false},
                                               {"thumb-width", 0, true, false},
                                               {"columns", 0, true, false},
                                               {"strength", 0, true, false},
                                               {"jobs", 'j', true, false},
                                               {"quiet", 'q', false, false}});
    if (args.has("help")) {
        std::cout << kHelp;
        return kExitOk;
    }
    if (args.positionals.size() > 1) throw UsageError("takes at most one PHOTO");
    if (!args.has("output")) throw UsageError("needs -o DIR");
    SheetLayout layout;
    layout.thumb_width = args.int_value("thumb-width", 200, 16, 4096);
    layout.columns = args.int_value("columns", 6, 1, 100);
    const unsigned threads = unsigned(args.int_value("jobs", int(default_jobs()), 1, 1024));
    const int strength = args.int_value("strength", 100, 0, 100);

    std::string source_name;
    const BgraImage source = load_source(args, source_name);
    const fs::path dir = args.value("output");
    std::error_code fs_error;
    fs::create_directories(dir / "materials", fs_error);
    if (fs_error) throw RunError(dir.string() + ": cannot create folder (" + fs_error.message() + ")");
    std::string error;
    if (!write_image((dir / "original.png").string(), source, 92, error)) throw RunError(error);

    const auto& entries = catalogue();
    std::vector<Rendered> rendered(entries.size());
    Console console("qtzq gallery", args.has("quiet"));
    console.start(entries.size());
    run_parallel(entries.size(), threads, [&](std::size_t i) {
        try {
            rendered[i] = render(entries[i], source, dir, layout.thumb_width, strength, console);
        } catch (const std::exception& e) {
            console.error(slug(entries[i]) + ": " + e.what());
        }
        console.step(slug(entries[i]));
    });
    console.finish();

    std::vector<SheetEntry> sheet_entries;
    std::vector<IndexEntry> index_entries;
    const BgraImage original_thumb = scale_area(source, layout.thumb_width,
        std::max(1, int(double(source.height) * layout.thumb_width / source.width + 0.5)));
    sheet_entries.push_back({&original_thumb, "original", source_name, false});
    index_entries.push_back({"original", source_name, "original.png", "", {}});
    std::size_t failed = 0;
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const EffectInfo& info = entries[i];
        if (!rendered[i].ok) {
            ++failed;
            continue;
        }
        const std::string heading = std::to_string(info.id) + " " + info.preset;
        const std::string note = rendered[i].changed ? "" : "unchanged: not in this build";
        sheet_entries.push_back({&rendered[i].thumbnail, heading,
                                 rendered[i].changed ? info.look : note, !rendered[i].changed});
        index_entries.push_back({heading, description(info), rendered[i].file, note,
                                 rendered[i].inputs});
    }
    const std::string title = "qtzq gallery: " + source_name + " (" +
                              std::to_string(sheet_entries.size() - 1) + " effects)";
    if (!write_image((dir / "contact-sheet.png").string(),
                     make_contact_sheet(title, sheet_entries, layout), 92, error))
        throw RunError(error);
    const std::string html = make_index_html(title, "contact-sheet.png", index_entries);
    if (!write_bytes((dir / "index.html").string(), std::vector<unsigned char>(html.begin(), html.end()), error))
        throw RunError(error);
    std::cout << "wrote " << (dir / "index.html").string() << " and "
              << (dir / "contact-sheet.png").string() << ": " << sheet_entries.size() - 1
              << " effects on " << (args.positionals.empty() ? source_name : args.positionals[0])
              << '\n';
    return failed > 0 ? kExitFailure : kExitOk;
}

}  // namespace qtzq_cli
