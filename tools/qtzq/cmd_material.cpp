// qtzq material: procedural material images.
#include <iostream>

#include "qtzq_app/image_file.h"
#include "qtzq_app/image_limits.h"
#include "qtzq_app/materials.h"
#include "qtzq_app/number_text.h"

#include "args.h"
#include "commands.h"

namespace qtzq_cli {

using namespace qtzq_app;

namespace {

void print_help() {
    std::cout << "usage: qtzq material KIND WIDTH HEIGHT -o FILE [--seed N] [--base B]\n\n"
                 "Draws a material image of the kind presets blend into photos. The same\n"
                 "kind, size, base and seed always give the same image.\n\n"
                 "Kinds (default base in brackets):\n";
    for (const auto& kind : material_kinds())
        std::cout << "  " << kind.name << std::string(12 - std::string(kind.name).size(), ' ')
                  << kind.description << " [" << base_name(kind.default_base) << "]\n";
    std::cout << "\nOptions:\n"
                 "  -o, --output FILE   the image (.png, .jpg, .jpeg)\n"
                 "      --seed N        0..4294967295 (default 1)\n"
                 "      --base B        the neutral colour drawn on: black (for screen),\n"
                 "                      grey (soft light, composite colour) or white\n"
                 "                      (multiply)\n"
                 "      --quality N     JPEG quality 1..100 (default 92)\n";
}

int side(const std::string& text, const char* what) {
    long long value = 0;
    if (!parse_int(text, 1, 1 << 20, value))
        throw UsageError(std::string(what) + " must be a whole number from 1 to 1048576, not '" +
                         text + "'");
    return int(value);
}

}  // namespace

int run_material(const Words& words) {
    const ParsedArgs args = parse_args(words, {{"output", 'o', true, false},
                                               {"seed", 0, true, false},
                                               {"base", 0, true, false},
                                               {"quality", 0, true, false}});
    if (args.has("help")) {
        print_help();
        return kExitOk;
    }
    if (args.positionals.size() != 3) throw UsageError("needs KIND, WIDTH and HEIGHT");
    const MaterialKind* kind = find_material_kind(args.positionals[0]);
    if (!kind) throw UsageError("unknown material kind '" + args.positionals[0] + "'");
    const int width = side(args.positionals[1], "WIDTH");
    const int height = side(args.positionals[2], "HEIGHT");
    if (!qtzq_app::image_size_supported(std::uint64_t(width), std::uint64_t(height)))
        throw UsageError(qtzq_app::size_text(std::uint64_t(width), std::uint64_t(height)) +
                         " is too large");
    if (!args.has("output")) throw UsageError("needs -o FILE");
    long long seed = 1;
    if (args.has("seed") && !parse_int(args.value("seed"), 0, 4294967295LL, seed))
        throw UsageError("--seed must be a whole number from 0 to 4294967295");
    MaterialBase base = kind->default_base;
    if (args.has("base") && !parse_base(args.value("base"), base))
        throw UsageError("--base must be black, grey or white");
    const int quality = args.int_value("quality", 92, 1, 100);

    const BgraImage image = make_material(kind->name, width, height, std::uint32_t(seed), base);
    std::string error;
    if (!write_image(args.value("output"), image, quality, error)) throw RunError(error);
    return kExitOk;
}

}  // namespace qtzq_cli
