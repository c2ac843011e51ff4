#include "qtzq_app/test_scene.h"

#include <algorithm>
#include <cmath>

namespace qtzq_app {
namespace {

struct Rgb {
    int r, g, b;
};

void put(BgraImage& img, int x, int y, Rgb c) {
    unsigned char* px = img.at(x, y);
    px[0] = static_cast<unsigned char>(std::clamp(c.b, 0, 255));
    px[1] = static_cast<unsigned char>(std::clamp(c.g, 0, 255));
    px[2] = static_cast<unsigned char>(std::clamp(c.r, 0, 255));
    px[3] = 255;
}

Rgb mix(Rgb a, Rgb b, double t) {
    return {int(a.r + (b.r - a.r) * t), int(a.g + (b.g - a.g) * t), int(a.b + (b.b - a.b) * t)};
}

// Top part: sky from deep blue to pale haze, with a warm sun glow.
Rgb sky(int x, int y, int w, int h) {
    const double t = double(y) / h;
    Rgb c = mix({40, 90, 190}, {200, 220, 240}, t);
    const double dx = x - 0.8 * w, dy = y - 0.15 * h;
    const double glow = std::exp(-(dx * dx + dy * dy) / (0.02 * w * w));
    return mix(c, {255, 230, 170}, glow);
}

// A face-like ellipse of skin tones, lit from the upper left.
bool skin(int x, int y, int w, int h, Rgb& out) {
    const double cx = 0.22 * w, cy = 0.55 * h, rx = 0.13 * w, ry = 0.28 * h;
    const double u = (x - cx) / rx, v = (y - cy) / ry;
    if (u * u + v * v > 1.0) return false;
    const double light = 0.75 + 0.25 * (-u - v) / 2.0;
    out = mix({120, 72, 50}, {238, 196, 170}, std::clamp(light, 0.0, 1.0));
    return true;
}

}  // namespace

BgraImage make_test_scene(int width, int height) {
    BgraImage img(width, height);
    const int ground = height * 2 / 5;
    const int ramp = height - height / 8;
    const Rgb patches[] = {{220, 30, 30}, {240, 200, 20}, {30, 170, 60},
                           {20, 140, 220}, {130, 40, 190}, {250, 120, 20}};
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            Rgb c;
            if (y >= ramp) {
                const int v = x * 255 / std::max(1, width - 1);  // grey ramp
                c = {v, v, v};
            } else if (y < ground) {
                c = sky(x, y, width, height);
            } else if (x > width * 2 / 5 && x < width * 4 / 5) {
                const int col = (x - width * 2 / 5) * 3 / (width * 2 / 5);
                const int row = (y - ground) * 2 / (ramp - ground);
                c = patches[std::clamp(row * 3 + col, 0, 5)];
            } else if (x >= width * 4 / 5) {
                const bool on = ((x / 2) + (y / 2)) % 2 == 0;  // fine checker detail
                c = on ? Rgb{235, 235, 225} : Rgb{25, 30, 35};
            } else {
                c = mix({70, 110, 50}, {40, 70, 30}, double(y - ground) / (ramp - ground));
            }
            Rgb face;
            if (y < ramp && skin(x, y, width, height, face)) c = face;
            put(img, x, y, c);
        }
    }
    return img;
}

}  // namespace qtzq_app
