// Pixel painting helpers for the material generators.
#ifndef QTZQ_APP_MATERIAL_CANVAS_H
#define QTZQ_APP_MATERIAL_CANVAS_H

#include "qtzq_app/materials.h"

namespace qtzq_app {

struct Rgb {
    double r, g, b;
};

// The neutral colour of a base: 0, 128 or 255 in every channel.
double base_level(MaterialBase base);

class Canvas {
public:
    Canvas(int width, int height, MaterialBase base);

    int width() const { return image_.width; }
    int height() const { return image_.height; }
    MaterialBase base() const { return base_; }

    // Sets the pixel to the colour (clamped and rounded).
    void set(int x, int y, Rgb colour);
    // Screens the colour over the pixel at the given strength (0..1).
    void screen(int x, int y, Rgb colour, double amount);
    // Mixes the pixel toward the colour by `amount` (0..1).
    void mix(int x, int y, Rgb colour, double amount);
    // Moves every channel by `delta` levels.
    void shift(int x, int y, double delta);

    BgraImage take() { return std::move(image_); }

private:
    BgraImage image_;
    MaterialBase base_;
};

}  // namespace qtzq_app

#endif  // QTZQ_APP_MATERIAL_CANVAS_H
