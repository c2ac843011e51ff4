// qtzq lut: a look's colour lookup table, as a .cube file or a Hald CLUT PNG.
#include <cctype>
#include <fstream>
#include <iostream>

#include "qtzq_app/catalogue.h"
#include "qtzq_app/colour_lut.h"
#include "qtzq_app/errors.h"
#include "qtzq_app/image_file.h"

#include "args.h"
#include "commands.h"

namespace qtzq_cli {

using namespace qtzq_app;

namespace {

const char* const kHelp =
    "usage: qtzq lut EFFECT -o FILE [--size N | --level L]\n\n"
    "Writes the colour lookup table of a look that is a pure colour map (each\n"
    "pixel's result depends on its colour alone; marked 'lut' in 'qtzq list'),\n"
    "for video editors, ffmpeg's lut3d filter, ImageMagick's -hald-clut and\n"
    "other photo tools. The table is made by running the look itself on the\n"
    "colours it holds. Looks with materials, grain or neighbourhoods are\n"
    "refused, with the reason.\n\n"
    "Options:\n"
    "  -o, --output FILE   FILE.cube: a 3D table as text (red fastest, values\n"
    "                      0..1, interpolated linearly between bytes);\n"
    "                      FILE.png: a Hald CLUT image\n"
    "      --size N        .cube points per axis, 2..256 (default 33; 256 is exact)\n"
    "      --level L       Hald level, 2..16 (default 16: an image of 4096 x 4096\n"
    "                      holding every colour, so applying it is exact)\n";

bool has_suffix(const std::string& text, const std::string& suffix) {
    if (text.size() < suffix.size()) return false;
    std::string tail = text.substr(text.size() - suffix.size());
    for (char& c : tail) c = char(std::tolower(static_cast<unsigned char>(c)));
    return tail == suffix;
}

void write_cube_file(const EffectInfo& info, const std::string& path, int size) {
    const std::vector<float> table = cube_table(hald_clut(info, kHaldLevelMax), size);
    const std::string temporary = temporary_path_for(path);
    bool ok = false;
    {
        std::ofstream out(temporary, std::ios::binary);
        write_cube(out, table, size, std::to_string(info.id) + " " + info.preset);
        ok = bool(out.flush());
    }
    std::string error = ok ? "" : path + ": cannot write file";
    if (!finish_atomic_write(temporary, path, ok, error)) throw RunError(error);
}

}  // namespace

int run_lut(const Words& words) {
    const ParsedArgs args = parse_args(words, {{"output", 'o', true, false},
                                               {"size", 0, true, false},
                                               {"level", 0, true, false}});
    if (args.has("help")) {
        std::cout << kHelp;
        return kExitOk;
    }
    if (args.positionals.size() != 1) throw UsageError("needs one EFFECT");
    const EffectInfo* info = find_effect(args.positionals[0]);
    if (!info) throw UsageError("unknown effect '" + args.positionals[0] + "' (see 'qtzq list')");
    if (!args.has("output")) throw UsageError("needs -o FILE");
    const std::string path = args.value("output");
    const bool cube = has_suffix(path, ".cube");
    if (!cube && !has_suffix(path, ".png")) throw UsageError(path + ": use .cube or .png");
    if (cube && args.has("level")) throw UsageError("--level goes with a .png Hald image");
    if (!cube && args.has("size")) throw UsageError("--size goes with a .cube file");
    const std::string refusal = lut_refusal(*info);
    if (!refusal.empty()) throw UsageError("no lookup table: " + refusal);
    if (cube) {
        write_cube_file(*info, path, args.int_value("size", 33, kCubeSizeMin, kCubeSizeMax));
        return kExitOk;
    }
    const int level = args.int_value("level", kHaldLevelMax, kHaldLevelMin, kHaldLevelMax);
    std::string error;
    if (!write_image(path, hald_clut(*info, level), 92, error)) throw RunError(error);
    return kExitOk;
}

}  // namespace qtzq_cli
