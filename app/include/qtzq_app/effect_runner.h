// Applies a catalogue effect through the library's facade, choosing the
// `effect` overload of the id. Effects marked `serialised` in the catalogue
// run one at a time process-wide (they reseed the shared rand() generator or
// may use the shared blur state); all others may run on many threads at once.
#ifndef QTZQ_APP_EFFECT_RUNNER_H
#define QTZQ_APP_EFFECT_RUNNER_H

#include <vector>

#include "qtzq_app/catalogue.h"
#include "qtzq_app/png_io.h"

namespace qtzq_app {

// `materials` must hold material_count(info.overload) images of the photo's
// size, and `tables` a table set of at least 196618 bytes when the overload
// needs one (else it may be null). The photo is changed in place; the
// materials are handed to the library as they are.
void run_effect(const EffectInfo& info, BgraImage& photo, std::vector<BgraImage>& materials,
                unsigned char* tables);

// The same on a caller's buffer of width * height BGRA pixels.
void run_effect(const EffectInfo& info, unsigned char* pixels, int width, int height,
                std::vector<BgraImage>& materials, unsigned char* tables);

}  // namespace qtzq_app

#endif  // QTZQ_APP_EFFECT_RUNNER_H
