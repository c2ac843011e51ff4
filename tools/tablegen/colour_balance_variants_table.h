// The nine tone curves of the fixed-setting colour-balance variants.
#ifndef QTZQ_TABLEGEN_COLOUR_BALANCE_VARIANTS_TABLE_H
#define QTZQ_TABLEGEN_COLOUR_BALANCE_VARIANTS_TABLE_H

#include <ostream>

namespace tablegen {

// The curves as the C++ source file src/pixel/colour_balance_variants_data.cpp,
// built by the library's own colour-balance curve code.
void write_colour_balance_variants(std::ostream& out);

}  // namespace tablegen

#endif  // QTZQ_TABLEGEN_COLOUR_BALANCE_VARIANTS_TABLE_H
