// The 54 curves of the curve store, interpolated from their samples.
#ifndef QTZQ_TABLEGEN_CURVE_STORE_TABLE_H
#define QTZQ_TABLEGEN_CURVE_STORE_TABLE_H

#include <array>
#include <ostream>

namespace tablegen {

// Curve k of the store, computed from tools/tablegen/curve_samples.h.
std::array<unsigned char, 256> store_curve(int k);

// The whole store as the C++ source file src/styles/curve_store_data.cpp.
void write_curve_store(std::ostream& out);

}  // namespace tablegen

#endif  // QTZQ_TABLEGEN_CURVE_STORE_TABLE_H
