// The parts of the _qtzqeffect module, one per concept; module.cpp calls
// each to add its functions and classes.
#ifndef QTZQ_PY_BINDINGS_H
#define QTZQ_PY_BINDINGS_H

#include <pybind11/pybind11.h>

namespace qtzq_py {

// apply, catalogue, effect_info, default_materials, default_tables.
void bind_effects(pybind11::module_& module);
// The whole-image primitives and blend modes.
void bind_primitives(pybind11::module_& module);
// Frame, FreeCollage, PuzzleFormat and Bubble: the file readers.
void bind_readers(pybind11::module_& module);
// read_image, decode_image, write_image.
void bind_codecs(pybind11::module_& module);

}  // namespace qtzq_py

#endif  // QTZQ_PY_BINDINGS_H
