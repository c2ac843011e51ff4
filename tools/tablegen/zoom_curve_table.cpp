#include "zoom_curve_table.h"

#include "curve_samples.h"
#include "curve_store_table.h"
#include "table_writer.h"

namespace tablegen {
namespace {

// Values at indices 0, 16, 32, ..., 240, 255: an S-shaped contrast curve,
// 127 at index 128.
constexpr unsigned char kZoomCurveSamples[kSampleCount] = {
    0, 3, 8, 16, 29, 48, 72, 99, 127, 156, 183, 208, 228, 242, 250, 254, 255};

}  // namespace

std::array<unsigned char, 256> zoom_curve() { return curve_through_samples(kZoomCurveSamples); }

void write_zoom_curve(std::ostream& out) {
    write_generated_banner(
        out, "zoom-curve",
        "// The zoom blur's contrast curve. It passes through its values at indices 0, 16,\n"
        "// ..., 240, 255 (tools/tablegen/zoom_curve_table.cpp); the indices in between\n"
        "// come from a monotone piecewise cubic through those samples, rounded half up.\n");
    out << "#include \"blur/zoom_curve.h\"\n\n"
        << "namespace qtzq {\n\n"
        << "const ZoomCurveTable kZoomContrastCurve = {\n";
    write_byte_table(out, "S-shaped contrast after the zoom blur", zoom_curve());
    out << "};\n\n}  // namespace qtzq\n";
}

}  // namespace tablegen
