// qtzq tables: blend table sets from the library's blend modes.
#include <array>
#include <iostream>

#include "qtzq_app/blend_tables.h"
#include "qtzq_app/catalogue.h"
#include "qtzq_app/effect_inputs.h"
#include "qtzq_app/image_file.h"

#include "args.h"
#include "commands.h"

namespace qtzq_cli {

using namespace qtzq_app;

namespace {

void print_help() {
    std::cout << "usage: qtzq tables MODE0 MODE1 MODE2 -o FILE\n"
                 "       qtzq tables --for EFFECT -o FILE\n\n"
                 "Builds a blend table set, the 196618-byte block that the blend-table\n"
                 "effects (1031, 1032, 1038) take: three 256 x 256 maps at bytes 4, 65543\n"
                 "and 131082 whose entry (a, b) is MODE applied to photo value a and second\n"
                 "operand b. Each MODE is a name below or the library function, with an\n"
                 "optional opacity from 0 to 1: screen, softlight:0.6, MultipleEx:0.8.\n"
                 "--for writes the set that 'qtzq apply' generates for EFFECT.\n\n"
                 "Modes:\n";
    for (const auto& mode : blend_modes())
        std::cout << "  " << mode.name << std::string(18 - std::string(mode.name).size(), ' ')
                  << mode.function << std::string(19 - std::string(mode.function).size(), ' ')
                  << mode.description << (mode.uses_opacity ? "" : " (no opacity)") << '\n';
}

std::vector<unsigned char> tables_for_effect(const std::string& name) {
    const EffectInfo* info = find_effect(name);
    if (!info) throw UsageError("unknown effect '" + name + "' (see 'qtzq list')");
    if (!needs_tables(info->overload))
        throw UsageError(std::to_string(info->id) + " " + info->preset +
                         " takes no blend table set");
    return default_table_set(*info);
}

std::vector<unsigned char> tables_from_modes(const std::vector<std::string>& names) {
    if (names.size() != 3) throw UsageError("needs three modes, one per map");
    std::array<TableMode, 3> modes;
    for (std::size_t m = 0; m < 3; ++m) {
        std::string error;
        if (parse_table_mode(names[m], modes[m], error)) continue;
        // An unknown name points to the list of modes in the help.
        throw UsageError(modes[m].mode ? error : error + " (see 'qtzq tables --help')");
    }
    return build_table_set(modes);
}

}  // namespace

int run_tables(const Words& words) {
    const ParsedArgs args = parse_args(words, {{"output", 'o', true, false}, {"for", 0, true, false}});
    if (args.has("help")) {
        print_help();
        return kExitOk;
    }
    if (args.has("for") && !args.positionals.empty())
        throw UsageError("give either three modes or --for EFFECT");
    if (!args.has("output")) throw UsageError("needs -o FILE");
    const std::vector<unsigned char> set =
        args.has("for") ? tables_for_effect(args.value("for")) : tables_from_modes(args.positionals);
    std::string error;
    if (!write_bytes(args.value("output"), set, error)) throw RunError(error);
    return kExitOk;
}

}  // namespace qtzq_cli
