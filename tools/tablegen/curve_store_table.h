// The 54 curves of the curve store, interpolated from their samples.
#ifndef QTZQ_TABLEGEN_CURVE_STORE_TABLE_H
#define QTZQ_TABLEGEN_CURVE_STORE_TABLE_H

#include <array>
#include <ostream>

namespace tablegen {

// A curve through 17 values at indices 0, 16, ..., 240, 255, filled in
// between by the monotone piecewise cubic.
std::array<unsigned char, 256> curve_through_samples(const unsigned char* values);

// Curve k of the store, computed from tools/tablegen/curve_samples.h.
std::array<unsigned char, 256> store_curve(int k);

// The whole store as the C++ source file src/styles/curve_store_data.cpp.
void write_curve_store(std::ostream& out);

}  // namespace tablegen

#endif  // QTZQ_TABLEGEN_CURVE_STORE_TABLE_H
