#include "material_kinds.h"

#include <algorithm>
#include <cmath>

#include "noise.h"

namespace qtzq_app {
namespace {

double area(const Canvas& canvas) { return double(canvas.width()) * canvas.height(); }

// Number of features for a canvas: one per `pixels_each` pixels, within
// [low, high].
int feature_count(const Canvas& canvas, double pixels_each, int low, int high) {
    const double n = area(canvas) / pixels_each;
    return n < low ? low : (n > high ? high : int(n));
}

// Calls f(x, y, dx, dy) for every pixel whose centre lies within `radius`
// of (cx, cy); dx, dy are the offsets of the pixel centre.
template <class F>
void for_each_near(const Canvas& canvas, double cx, double cy, double radius, F f) {
    const double left = std::max(0.0, std::floor(cx - radius));
    const double right = std::min(double(canvas.width() - 1), std::ceil(cx + radius));
    const double top = std::max(0.0, std::floor(cy - radius));
    const double bottom = std::min(double(canvas.height() - 1), std::ceil(cy + radius));
    if (left > right || top > bottom) return;
    for (int y = int(top); y <= int(bottom); ++y)
        for (int x = int(left); x <= int(right); ++x) {
            const double dx = x + 0.5 - cx, dy = y + 0.5 - cy;
            if (dx * dx + dy * dy <= radius * radius) f(x, y, dx, dy);
        }
}

// The colour of dust on this base: light on black, dark on white, either on
// grey.
Rgb dust_colour(MaterialBase base, Random& random) {
    const bool light = base == MaterialBase::Black ||
                       (base == MaterialBase::Grey && random.uniform() < 0.5);
    return light ? Rgb{250, 245, 235} : Rgb{35, 30, 25};
}

void draw_specks(Canvas& canvas, Random& random) {
    const int count = feature_count(canvas, 5000.0, 3, 20000);
    for (int i = 0; i < count; ++i) {
        const double cx = random.range(0, canvas.width()), cy = random.range(0, canvas.height());
        const double r = random.range(0.6, 2.2), opacity = random.range(0.5, 0.9);
        const Rgb colour = dust_colour(canvas.base(), random);
        for_each_near(canvas, cx, cy, r + 0.5, [&](int x, int y, double dx, double dy) {
            const double cover = std::clamp(r + 0.5 - std::sqrt(dx * dx + dy * dy), 0.0, 1.0);
            canvas.mix(x, y, colour, cover * opacity);
        });
    }
}

// Curly hairs: a random walk whose direction turns a little at every step
// (rotation by a small angle without trigonometry).
void draw_hairs(Canvas& canvas, Random& random) {
    const int count = feature_count(canvas, 150000.0, 1, 12);
    const double extent = std::min(canvas.width(), canvas.height());
    for (int i = 0; i < count; ++i) {
        double x = random.range(0, canvas.width()), y = random.range(0, canvas.height());
        double ux = random.range(-1, 1), uy = random.range(-1, 1);
        const double norm = std::sqrt(ux * ux + uy * uy) + 1e-9;
        ux /= norm;
        uy /= norm;
        const int steps = int(random.range(0.05, 0.25) * extent * 2) + 4;
        const double opacity = random.range(0.35, 0.7), turn_bias = random.range(-0.04, 0.04);
        const Rgb colour = dust_colour(canvas.base(), random);
        for (int s = 0; s < steps; ++s) {
            const int px = int(x), py = int(y);
            if (x >= 0 && y >= 0 && px < canvas.width() && py < canvas.height())
                canvas.mix(px, py, colour, opacity);
            const double a = turn_bias + random.range(-0.08, 0.08);
            const double nx = ux - a * uy, ny = uy + a * ux, n = std::sqrt(nx * nx + ny * ny);
            ux = nx / n;
            uy = ny / n;
            x += 0.5 * ux;
            y += 0.5 * uy;
        }
    }
}

// Long, faint vertical scratches that wander a little from row to row.
void draw_scratches(Canvas& canvas, Random& random) {
    const int count = 1 + int(random.next() % 3u);
    for (int i = 0; i < count; ++i) {
        double x = random.range(0, canvas.width());
        const int top = int(random.range(0, canvas.height() * 0.5));
        const int bottom = top + int(random.range(0.3, 1.0) * (canvas.height() - top));
        const double opacity = random.range(0.2, 0.45);
        const Rgb colour = dust_colour(canvas.base(), random);
        for (int y = top; y < bottom && y < canvas.height(); ++y) {
            x += random.range(-0.3, 0.3);
            if (x >= 0 && x < canvas.width()) canvas.mix(int(x), y, colour, opacity);
        }
    }
}

void draw_dust(Canvas& canvas, Random& random) {
    draw_specks(canvas, random);
    draw_hairs(canvas, random);
    draw_scratches(canvas, random);
}

}  // namespace

void draw_vignette(Canvas& canvas, std::uint32_t seed) {
    Random random(seed);
    const double cx = 0.5 + random.range(-0.04, 0.04), cy = 0.5 + random.range(-0.04, 0.04);
    const double strength = 0.85;
    for (int y = 0; y < canvas.height(); ++y)
        for (int x = 0; x < canvas.width(); ++x) {
            const double u = ((x + 0.5) / canvas.width() - cx) * 2.0;
            const double v = ((y + 0.5) / canvas.height() - cy) * 2.0;
            const double d = std::sqrt(u * u + v * v) * 0.7071067811865476;
            canvas.mix(x, y, {0, 0, 0}, strength * smoothstep(0.3, 1.05, d));
        }
}

void draw_light_leak(Canvas& canvas, std::uint32_t seed) {
    static const Rgb palette[] = {
        {255, 140, 40}, {255, 70, 40}, {255, 205, 90}, {240, 80, 150}, {255, 228, 190}};
    struct Glow {
        double x, y, radius, strength;
        Rgb colour;
    };
    Random random(seed);
    const double w = canvas.width(), h = canvas.height(), size = std::max(w, h);
    Glow glows[3];
    const int count = 2 + int(random.next() % 2u);
    for (int i = 0; i < count; ++i) {
        const unsigned side = random.next() % 4u;
        const double along = random.uniform(), out = random.range(-0.1, 0.05);
        Glow& g = glows[i];
        g.x = side == 0 ? out * w : side == 1 ? (1 - out) * w : along * w;
        g.y = side == 2 ? out * h : side == 3 ? (1 - out) * h : along * h;
        g.radius = random.range(0.3, 0.7) * size;
        g.strength = random.range(0.6, 1.0);
        g.colour = palette[random.next() % 5u];
    }
    for (int y = 0; y < canvas.height(); ++y)
        for (int x = 0; x < canvas.width(); ++x)
            for (int i = 0; i < count; ++i) {
                const Glow& g = glows[i];
                const double dx = (x + 0.5 - g.x) / g.radius, dy = (y + 0.5 - g.y) / g.radius;
                const double falloff = 1.0 + 3.5 * (dx * dx + dy * dy);
                canvas.screen(x, y, g.colour, g.strength / (falloff * falloff));
            }
}

void draw_grain(Canvas& canvas, std::uint32_t seed) {
    Random random(seed);
    const double amplitude = 16.0;
    for (int y = 0; y < canvas.height(); ++y)
        for (int x = 0; x < canvas.width(); ++x) {
            const double g = random.gaussian() * amplitude;
            switch (canvas.base()) {
                case MaterialBase::Grey: canvas.shift(x, y, g); break;
                case MaterialBase::Black: canvas.shift(x, y, std::fabs(g) * 0.75); break;
                case MaterialBase::White: canvas.shift(x, y, -std::fabs(g) * 0.75); break;
            }
        }
    draw_dust(canvas, random);
}

void draw_paper(Canvas& canvas, std::uint32_t seed) {
    Random random(seed);
    const double cell = std::max(8.0, std::min(canvas.width(), canvas.height()) / 5.0);
    for (int y = 0; y < canvas.height(); ++y)
        for (int x = 0; x < canvas.width(); ++x) {
            const double mottle = fractal_noise(x, y, cell, 4, seed);
            const double fibre = value_noise(x, y, 14.0, 1.6, seed + 77u);
            const double t = 0.7 * mottle + 0.3 * fibre;  // 0..1, mostly near 0.5
            switch (canvas.base()) {
                case MaterialBase::White: {
                    const double k = 1.0 - 0.2 * (t - 0.5) - 0.05;
                    canvas.set(x, y, {238 * k, 226 * k, 200 * k});
                    break;
                }
                case MaterialBase::Grey: {
                    const double d = (t - 0.5) * 50.0;
                    canvas.set(x, y, {140 + d, 128 + d, 110 + d});
                    break;
                }
                case MaterialBase::Black: {
                    const double k = 0.25 + 0.45 * t;
                    canvas.set(x, y, {120 * k, 84 * k, 48 * k});
                    break;
                }
            }
        }
    draw_dust(canvas, random);
}

void draw_stars(Canvas& canvas, std::uint32_t seed) {
    static const Rgb tints[] = {{255, 255, 255}, {255, 240, 210}, {210, 225, 255}, {255, 215, 150}};
    Random random(seed);
    const int count = feature_count(canvas, 2500.0, 4, 4000);
    for (int i = 0; i < count; ++i) {
        const double cx = random.range(0, canvas.width()), cy = random.range(0, canvas.height());
        const double u = random.uniform();
        const double size = 0.8 + 3.2 * u * u * u, brightness = random.range(0.6, 1.0);
        const Rgb tint = tints[random.next() % 4u];
        const double reach = size > 2.0 ? size * 8.0 : size * 3.0;
        const double thin = 0.25 * size;
        for_each_near(canvas, cx, cy, reach, [&](int x, int y, double dx, double dy) {
            const double core = 1.0 / (1.0 + (dx * dx + dy * dy) / (size * size));
            double light = core * core;
            if (size > 2.0) {
                light += 0.7 * std::max(0.0, 1.0 - std::fabs(dx) / reach) / (1.0 + dy * dy / thin);
                light += 0.7 * std::max(0.0, 1.0 - std::fabs(dy) / reach) / (1.0 + dx * dx / thin);
            }
            canvas.screen(x, y, tint, std::min(1.0, light) * brightness);
        });
    }
}

void draw_snow(Canvas& canvas, std::uint32_t seed) {
    Random random(seed);
    const int count = feature_count(canvas, 500.0, 10, 200000);
    for (int i = 0; i < count; ++i) {
        const double cx = random.range(0, canvas.width()), cy = random.range(0, canvas.height());
        const double u = random.uniform();
        const double r = 0.5 + 2.5 * u * u, soft = 0.6 + 0.3 * r;
        const double opacity = random.range(0.5, 1.0);
        for_each_near(canvas, cx, cy, r + soft, [&](int x, int y, double dx, double dy) {
            const double d = std::sqrt(dx * dx + dy * dy);
            const double cover = 1.0 - smoothstep(r - soft, r + soft, d);
            canvas.screen(x, y, {250, 252, 255}, cover * opacity);
        });
    }
}

}  // namespace qtzq_app
