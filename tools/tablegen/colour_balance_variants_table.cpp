#include "colour_balance_variants_table.h"

#include <algorithm>
#include <array>
#include <string>

#include "pixel/colour_balance_curves.h"
#include "table_writer.h"

namespace tablegen {
namespace {

constexpr const char* kVariantNames[] = {"CColorBalance_0_13_0_21", "CColorBalance_1_2_0_8",
                                         "CColorBalance_2_0_0_s13"};

std::array<unsigned char, 256> as_array(const unsigned char* curve) {
    std::array<unsigned char, 256> table;
    std::copy(curve, curve + 256, table.begin());
    return table;
}

std::string describe(int variant) {
    const qtzq::ColourBalanceSetting& s = qtzq::kColourBalanceVariants[variant];
    return std::string(kVariantNames[variant]) + ": region " + std::to_string(s.region) +
           ", shifts " + std::to_string(s.red) + ", " + std::to_string(s.green) + ", " +
           std::to_string(s.blue);
}

}  // namespace

void write_colour_balance_variants(std::ostream& out) {
    write_generated_banner(
        out, "colour-balance-variants",
        "// The fixed-setting colour-balance variants' curves, red, green and blue for\n"
        "// each variant, built by qtzq::colour_balance_curves from the settings in\n"
        "// kColourBalanceVariants (src/pixel/colour_balance_curves.h).\n");
    out << "#include \"pixel/colour_balance_variants.h\"\n\n"
        << "namespace qtzq {\n\n"
        << "const unsigned char kColourBalanceVariantCurves[kColourBalanceVariantCurveCount][256] = "
           "{\n";
    for (int variant = 0; variant < 3; ++variant) {
        const qtzq::RgbCurves curves =
            qtzq::colour_balance_curves(qtzq::kColourBalanceVariants[variant]);
        const std::string name = describe(variant);
        write_byte_table(out, name + " (red)", as_array(curves.red));
        write_byte_table(out, name + " (green)", as_array(curves.green));
        write_byte_table(out, name + " (blue)", as_array(curves.blue));
    }
    out << "};\n\n}  // namespace qtzq\n";
}

}  // namespace tablegen
