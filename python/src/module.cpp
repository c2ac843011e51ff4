// _qtzqeffect: the compiled half of the qtzqeffect package.
#include "bindings.h"

PYBIND11_MODULE(_qtzqeffect, module) {
    module.doc() =
        "Photo effects on numpy arrays: the compiled part of the qtzqeffect package.\n\n"
        "Images are uint8 arrays of shape (height, width, 4) in the library's BGRA\n"
        "order, or, with order='rgb', (height, width, 3) RGB or (height, width, 4)\n"
        "RGBA arrays converted at the boundary. Calls return a new array unless\n"
        "inplace=True is given with a writeable C-contiguous BGRA array, which is\n"
        "then changed and returned. The GIL is released while the library works.";
    qtzq_py::bind_effects(module);
    qtzq_py::bind_primitives(module);
    qtzq_py::bind_readers(module);
    qtzq_py::bind_codecs(module);
}
