// The individual material generators behind make_material().
#ifndef QTZQ_APP_MATERIAL_KINDS_H
#define QTZQ_APP_MATERIAL_KINDS_H

#include <cstdint>

#include "material_canvas.h"

namespace qtzq_app {

// Darkens toward the corners: the base colour in the middle, nearly black at
// the edges.
void draw_vignette(Canvas& canvas, std::uint32_t seed);
// Two or three warm glows entering from the edges.
void draw_light_leak(Canvas& canvas, std::uint32_t seed);
// Monochrome film grain, dust specks, hairs and vertical scratches.
void draw_grain(Canvas& canvas, std::uint32_t seed);
// Warm mottled paper with fibres, plus dust.
void draw_paper(Canvas& canvas, std::uint32_t seed);
// Points of light of different sizes, the large ones with four spikes.
void draw_stars(Canvas& canvas, std::uint32_t seed);
// Soft white flakes of different sizes.
void draw_snow(Canvas& canvas, std::uint32_t seed);

}  // namespace qtzq_app

#endif  // QTZQ_APP_MATERIAL_KINDS_H
