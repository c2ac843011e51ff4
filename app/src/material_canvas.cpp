#include "material_canvas.h"

namespace qtzq_app {
namespace {

unsigned char to_byte(double value) {
    if (!(value > 0.0)) return 0;  // also catches NaN
    if (value >= 255.0) return 255;
    return static_cast<unsigned char>(value + 0.5);
}

}  // namespace

double base_level(MaterialBase base) {
    switch (base) {
        case MaterialBase::Black: return 0.0;
        case MaterialBase::Grey: return 128.0;
        case MaterialBase::White: return 255.0;
    }
    return 0.0;
}

Canvas::Canvas(int width, int height, MaterialBase base) : image_(width, height), base_(base) {
    const auto level = static_cast<unsigned char>(base_level(base));
    for (std::size_t i = 0; i < image_.pixels.size(); i += 4) {
        image_.pixels[i] = image_.pixels[i + 1] = image_.pixels[i + 2] = level;
        image_.pixels[i + 3] = 255;
    }
}

void Canvas::set(int x, int y, Rgb colour) {
    unsigned char* p = image_.at(x, y);
    p[0] = to_byte(colour.b);
    p[1] = to_byte(colour.g);
    p[2] = to_byte(colour.r);
}

void Canvas::screen(int x, int y, Rgb colour, double amount) {
    unsigned char* p = image_.at(x, y);
    const double c[3] = {colour.b, colour.g, colour.r};
    for (int i = 0; i < 3; ++i) p[i] = to_byte(p[i] + (255.0 - p[i]) * (c[i] / 255.0) * amount);
}

void Canvas::mix(int x, int y, Rgb colour, double amount) {
    unsigned char* p = image_.at(x, y);
    const double c[3] = {colour.b, colour.g, colour.r};
    for (int i = 0; i < 3; ++i) p[i] = to_byte(p[i] + (c[i] - p[i]) * amount);
}

void Canvas::shift(int x, int y, double delta) {
    unsigned char* p = image_.at(x, y);
    for (int i = 0; i < 3; ++i) p[i] = to_byte(p[i] + delta);
}

}  // namespace qtzq_app
