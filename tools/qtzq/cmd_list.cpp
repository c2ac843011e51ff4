// qtzq list: the effect catalogue.
#include <iomanip>
#include <iostream>
#include <sstream>

#include "qtzq_app/catalogue.h"

#include "args.h"
#include "commands.h"

namespace qtzq_cli {

using namespace qtzq_app;

namespace {

const char* const kHelp =
    "usage: qtzq list [--tsv]\n\n"
    "Lists every effect id of the library's catalogue: the preset it runs,\n"
    "a short name of the look, the Qtzqeffect::effect overload that reaches it\n"
    "and the inputs it needs besides the photo. Materials and blend tables that\n"
    "you do not pass to 'qtzq apply' are generated (shown as KIND/BASE; see\n"
    "'qtzq material --help'). Effects marked * touch process-wide library state\n"
    "and are never run two at a time. LUT shows the looks that are pure colour\n"
    "maps: 'qtzq lut' exports them as a .cube table or a Hald CLUT image.\n\n"
    "An EFFECT argument of the other commands may be the id, the preset name\n"
    "with or without 'Style', or the look (case, spaces and dashes ignored).\n\n"
    "  --tsv   tab-separated: id, preset, look, overload, materials, tables,\n"
    "          serialised (yes/no), colour map (yes/no), for scripts\n";

std::string materials_text(const EffectInfo& info) {
    std::string text;
    for (const auto& need : info.materials) {
        if (!text.empty()) text += ", ";
        text += std::string(need.fallback.kind) + "/" + base_name(need.fallback.base);
    }
    return text;
}

bool colour_map(const EffectInfo& info) { return info.mapping == Mapping::ColourMap; }

void print_table(std::ostream& out) {
    out << std::left << std::setw(6) << "ID" << std::setw(21) << "PRESET" << std::setw(18)
        << "LOOK" << std::setw(22) << "OVERLOAD" << std::setw(5) << "LUT"
        << "NEEDS\n";
    for (const auto& info : catalogue()) {
        std::string needs = materials_text(info);
        if (needs_tables(info.overload)) needs += "; tables " + table_modes_text(info, " ");
        out << std::setw(6) << (std::to_string(info.id) + (info.serialised ? "*" : ""))
            << std::setw(21) << info.preset << std::setw(18) << info.look << std::setw(22)
            << overload_text(info.overload) << std::setw(5) << (colour_map(info) ? "lut" : "-")
            << (needs.empty() ? "-" : needs) << '\n';
    }
}

void print_tsv(std::ostream& out) {
    for (const auto& info : catalogue())
        out << info.id << '\t' << info.preset << '\t' << info.look << '\t'
            << overload_text(info.overload) << '\t' << materials_text(info) << '\t'
            << table_modes_text(info, " ") << '\t' << (info.serialised ? "yes" : "no") << '\t'
            << (colour_map(info) ? "yes" : "no") << '\n';
}

}  // namespace

int run_list(const Words& words) {
    const ParsedArgs args = parse_args(words, {{"tsv", 0, false, false}});
    if (args.has("help")) {
        std::cout << kHelp;
        return kExitOk;
    }
    if (!args.positionals.empty()) throw UsageError("unexpected argument '" + args.positionals[0] + "'");
    if (args.has("tsv"))
        print_tsv(std::cout);
    else
        print_table(std::cout);
    return kExitOk;
}

}  // namespace qtzq_cli
