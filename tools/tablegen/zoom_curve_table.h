// The zoom blur's contrast curve, interpolated from its samples.
#ifndef QTZQ_TABLEGEN_ZOOM_CURVE_TABLE_H
#define QTZQ_TABLEGEN_ZOOM_CURVE_TABLE_H

#include <array>
#include <ostream>

namespace tablegen {

// The S-shaped contrast curve through its values at 0, 16, ..., 240, 255.
std::array<unsigned char, 256> zoom_curve();

// The curve as the C++ source file src/blur/zoom_curve_data.cpp.
void write_zoom_curve(std::ostream& out);

}  // namespace tablegen

#endif  // QTZQ_TABLEGEN_ZOOM_CURVE_TABLE_H
