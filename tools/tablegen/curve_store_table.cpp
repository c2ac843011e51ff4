#include "curve_store_table.h"

#include <string>
#include <vector>

#include "curve_samples.h"
#include "monotone_cubic.h"
#include "table_writer.h"

namespace tablegen {

std::array<unsigned char, 256> curve_through_samples(const unsigned char* values) {
    std::vector<Sample> samples;
    for (int s = 0; s < kSampleCount; ++s) samples.push_back({sample_index(s), double(values[s])});
    return interpolate_curve(samples);
}

std::array<unsigned char, 256> store_curve(int k) { return curve_through_samples(defining_samples(k)); }

void write_curve_store(std::ostream& out) {
    write_generated_banner(
        out, "curve-store",
        "// The curve store. Each curve passes through its values at indices 0, 16, ...,\n"
        "// 240, 255 (tools/tablegen/curve_samples.h); the indices in between come from a\n"
        "// monotone piecewise cubic through those samples, rounded half up.\n");
    out << "#include \"styles/curve_store.h\"\n\n"
        << "namespace qtzq {\n\n"
        << "const unsigned char kCurveStore[kCurveStoreSize][kCurveLength] = {\n";
    for (int k = 0; k < kCurveCount; ++k) {
        std::string comment = std::to_string(k) + ": " + kCurveSamples[k].user;
        if (kCurveSamples[k].same_as >= 0)
            comment += ", same values as " + std::to_string(kCurveSamples[k].same_as);
        write_byte_table(out, comment, store_curve(k));
    }
    out << "};\n\n}  // namespace qtzq\n";
}

}  // namespace tablegen
