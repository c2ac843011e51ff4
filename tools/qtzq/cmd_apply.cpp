// qtzq apply: one effect on many photos, in parallel.
#include <atomic>
#include <filesystem>
#include <iostream>
#include <set>

#include "qtzq_app/catalogue.h"
#include "qtzq_app/effect_inputs.h"
#include "qtzq_app/effect_runner.h"
#include "qtzq_app/errors.h"
#include "qtzq_app/image_file.h"
#include "qtzq_app/strength.h"

#include "args.h"
#include "commands.h"
#include "console.h"
#include "parallel.h"

namespace qtzq_cli {

using namespace qtzq_app;

namespace {

namespace fs = std::filesystem;

const char* const kHelp =
    "usage: qtzq apply EFFECT INPUT... (-o OUTPUT | --out-dir DIR) [options]\n\n"
    "Applies one effect of the catalogue ('qtzq list') to every INPUT photo\n"
    "(PNG, JPEG, WebP, TIFF, HEIF/HEIC or AVIF; alpha is kept; the first frame\n"
    "or page of an animated or multi-page file) through Qtzqeffect::effect and\n"
    "writes the result as PNG, JPEG, WebP or TIFF, chosen by the output's\n"
    "extension. EFFECT is an id or a preset name, e.g. 1020, StyleFilm or film.\n\n"
    "The photo is turned upright by its EXIF orientation first, and the result\n"
    "keeps the input's ICC profile, EXIF (orientation 1, no thumbnail) and XMP\n"
    "where its format holds them (PNG, JPEG and WebP all three, TIFF the profile\n"
    "and XMP). The pixels are not colour converted.\n\n"
    "Options:\n"
    "  -o, --output FILE     the result of a single INPUT (.png, .jpg, .jpeg,\n"
    "                        .webp, .tif, .tiff)\n"
    "      --out-dir DIR     one result per INPUT, named after it (DIR is created)\n"
    "      --format F        with --out-dir: type of the results, png, jpg, webp or\n"
    "                        tif (default: as INPUT, PNG for HEIF and AVIF)\n"
    "  -m, --material FILE   a material image; repeat for the 2nd and 3rd slot.\n"
    "                        A material of another size than the photo is scaled\n"
    "                        to it (bilinear) with a note on stderr\n"
    "      --exact-size      refuse materials whose size differs from the photo's\n"
    "      --tables FILE     a blend table set (196618 bytes, see 'qtzq tables')\n"
    "      --strength P      0..100 (default 100): each colour channel becomes\n"
    "                        (original x (100 - P) + result x P + 50) / 100,\n"
    "                        alpha is the result's\n"
    "      --quality N       JPEG and lossy WebP quality 1..100 (default 92)\n"
    "      --lossless        WebP: lossless instead of lossy\n"
    "      --compression N   PNG and TIFF deflate level 0..9 (default 1: fast;\n"
    "                        9: smallest files, several times slower)\n"
    "      --strip           write no metadata (profile, EXIF, XMP)\n"
    "  -j, --jobs N          photos processed at once (default: hardware threads)\n"
    "  -q, --quiet           no notes and no progress bar\n\n"
    "Materials and tables that are not given are generated to suit the effect\n"
    "(listed by 'qtzq list'); a given effect and photo size always get the same.\n\n"
    "INPUTs are processed in parallel. Effects that touch process-wide library\n"
    "state (they reseed rand() from the clock, or their recipe may use the\n"
    "shared blur) run one at a time: ";

const char* const kHelpEnd =
    ".\nA progress bar is shown when stderr is a terminal.\n\n"
    "Each result is written to a temporary file and renamed into place, so a\n"
    "failing INPUT never leaves a broken or overwritten result. Exit status 1\n"
    "when any INPUT failed, 2 for a usage mistake.\n";

struct Job {
    std::string input;
    std::string output;
};

std::string serialised_ids() {
    std::string ids;
    for (const auto& info : catalogue())
        if (info.serialised) ids += (ids.empty() ? "" : ", ") + std::to_string(info.id);
    return ids;
}

const EffectInfo& resolve_effect(const std::string& name) {
    const EffectInfo* info = find_effect(name);
    if (!info) throw UsageError("unknown effect '" + name + "' (see 'qtzq list')");
    return *info;
}

std::string output_in_dir(const std::string& input, const std::string& dir,
                          const std::string& format) {
    const fs::path in(input);
    std::string extension = in.extension().string();
    ImageFormat unused;
    if (!format.empty())
        extension = "." + format;
    else if (!format_for_path(input, unused))
        extension = ".png";
    return (fs::path(dir) / in.stem()).string() + extension;
}

std::vector<Job> plan_jobs(const std::vector<std::string>& inputs, const ParsedArgs& args) {
    const bool single = args.has("output"), many = args.has("out-dir");
    if (single == many) throw UsageError("give either -o OUTPUT or --out-dir DIR");
    if (single && inputs.size() != 1)
        throw UsageError("-o takes one INPUT; use --out-dir DIR for " +
                         std::to_string(inputs.size()));
    std::string format = args.value("format");
    ImageFormat chosen;
    if (!format.empty() && !format_for_path("." + format, chosen))
        throw UsageError("--format must be png, jpg, webp or tif, not '" + format + "'");
    if (!format.empty() && single) throw UsageError("--format goes with --out-dir");
    std::vector<Job> jobs;
    std::set<std::string> outputs;
    for (const auto& input : inputs) {
        const std::string output =
            single ? args.value("output") : output_in_dir(input, args.value("out-dir"), format);
        ImageFormat unused;
        if (!format_for_path(output, unused))
            throw UsageError(output + ": unknown image type (use " + writable_extensions() + ")");
        if (!outputs.insert(fs::path(output).lexically_normal().string()).second)
            throw UsageError("two INPUTs would both be written to " + output);
        jobs.push_back({input, output});
    }
    return jobs;
}

struct Settings {
    unsigned char* tables;
    WriteOptions write;
    int strength;
    bool strip;
};

// Reads, applies and writes one photo; reports problems on the console.
bool process(const Job& job, const EffectInputs& inputs, const Settings& settings,
             Console& console) {
    Photo file;
    std::string error;
    if (!read_photo(job.input, file, error)) {
        console.error(error);
        return false;
    }
    for (const auto& note : file.notes) console.note(note);
    BgraImage& photo = file.image;
    std::vector<std::string> notes;
    std::vector<BgraImage> materials;
    try {
        materials = inputs.materials_for(photo.width, photo.height, job.input, notes);
    } catch (const InputError& e) {
        console.error(e.what());
        return false;
    }
    for (const auto& note : notes) console.note(note);
    const BgraImage original = settings.strength < 100 ? photo : BgraImage();
    run_effect(inputs.info(), photo, materials, settings.tables);
    if (settings.strength < 100)
        mix_strength(original.pixels.data(), photo.data(), photo.pixels.size() / 4,
                     settings.strength);
    ImageFormat format = ImageFormat::Png;
    format_for_path(job.output, format);
    if (format == ImageFormat::Jpeg && has_transparency(photo))
        console.note(job.output + ": JPEG keeps no alpha; the transparency is dropped");
    if (!write_photo(job.output, photo, settings.strip ? PhotoMetadata() : file.metadata,
                     settings.write, error)) {
        console.error(error);
        return false;
    }
    return true;
}

}  // namespace

int run_apply(const Words& words) {
    const ParsedArgs args = parse_args(words, {{"output", 'o', true, false},
                                               {"out-dir", 0, true, false},
                                               {"format", 0, true, false},
                                               {"material", 'm', true, true},
                                               {"exact-size", 0, false, false},
                                               {"tables", 0, true, false},
                                               {"quality", 0, true, false},
                                               {"strength", 0, true, false},
                                               {"lossless", 0, false, false},
                                               {"compression", 0, true, false},
                                               {"strip", 0, false, false},
                                               {"jobs", 'j', true, false},
                                               {"quiet", 'q', false, false}});
    if (args.has("help")) {
        std::cout << kHelp << serialised_ids() << kHelpEnd;
        return kExitOk;
    }
    if (args.positionals.size() < 2) throw UsageError("needs an EFFECT and at least one INPUT");
    const EffectInfo& info = resolve_effect(args.positionals[0]);
    const std::vector<std::string> input_paths(args.positionals.begin() + 1, args.positionals.end());
    const std::vector<Job> jobs = plan_jobs(input_paths, args);
    Settings settings{nullptr, {}, args.int_value("strength", 100, 0, 100), args.has("strip")};
    settings.write.quality = args.int_value("quality", 92, 1, 100);
    settings.write.lossless = args.has("lossless");
    settings.write.compression =
        args.int_value("compression", WriteOptions::kDefaultCompression, 0, 9);
    const unsigned threads = unsigned(args.int_value("jobs", int(default_jobs()), 1, 1024));

    EffectInputs inputs(info, args.values("material"), args.value("tables"), args.has("exact-size"));
    Console console("qtzq apply", args.has("quiet"));
    for (const auto& line : inputs.default_descriptions())
        console.note(std::to_string(info.id) + " " + info.preset + ": " + line);
    if (args.has("out-dir")) {
        std::error_code error;
        fs::create_directories(args.value("out-dir"), error);
        if (error) throw RunError(args.value("out-dir") + ": cannot create folder (" + error.message() + ")");
    }

    std::atomic<std::size_t> failed{0};
    settings.tables = inputs.tables();
    console.start(jobs.size());
    run_parallel(jobs.size(), threads, [&](std::size_t i) {
        bool ok = false;
        try {
            ok = process(jobs[i], inputs, settings, console);
        } catch (const std::exception& e) {
            console.error(jobs[i].input + ": " + e.what());
        }
        if (!ok) ++failed;
        console.step(jobs[i].input);
    });
    console.finish();
    if (failed > 0 && jobs.size() > 1)
        console.error(std::to_string(failed.load()) + " of " + std::to_string(jobs.size()) +
                      " inputs failed");
    return failed > 0 ? kExitFailure : kExitOk;
}

}  // namespace qtzq_cli
