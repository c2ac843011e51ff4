// qtzq-tablegen: writes the library's generated constant tables.
//
//   qtzq-tablegen curve-store FILE    the 54-curve store (src/styles/curve_store_data.cpp)
//   qtzq-tablegen zoom-curve FILE     the zoom blur's contrast curve (src/blur/zoom_curve_data.cpp)
//   qtzq-tablegen colour-balance-variants FILE
//                                     the fixed colour-balance curves
//                                     (src/pixel/colour_balance_variants_data.cpp)
//
// The output depends on nothing but this program's sources, so running it
// again reproduces the committed files byte for byte; a test checks that.
#include <cstring>
#include <fstream>
#include <iostream>
#include <ostream>

#include "colour_balance_variants_table.h"
#include "curve_store_table.h"
#include "zoom_curve_table.h"

namespace {

struct Table {
    const char* name;
    void (*write)(std::ostream&);
};

constexpr Table kTables[] = {
    {"curve-store", tablegen::write_curve_store},
    {"zoom-curve", tablegen::write_zoom_curve},
    {"colour-balance-variants", tablegen::write_colour_balance_variants},
};

int usage(std::ostream& out, int status) {
    out << "usage: qtzq-tablegen TABLE FILE\n\nTABLE is one of:\n";
    for (const Table& table : kTables) out << "  " << table.name << '\n';
    return status;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc == 2 && (!std::strcmp(argv[1], "--help") || !std::strcmp(argv[1], "-h")))
        return usage(std::cout, 0);
    if (argc != 3) return usage(std::cerr, 2);
    for (const Table& table : kTables) {
        if (std::strcmp(argv[1], table.name) != 0) continue;
        std::ofstream out(argv[2], std::ios::binary);
        if (!out) {
            std::cerr << "qtzq-tablegen: cannot write " << argv[2] << '\n';
            return 1;
        }
        table.write(out);
        out.close();
        if (!out) {
            std::cerr << "qtzq-tablegen: error writing " << argv[2] << '\n';
            return 1;
        }
        return 0;
    }
    std::cerr << "qtzq-tablegen: unknown table '" << argv[1] << "'\n";
    return usage(std::cerr, 2);
}
