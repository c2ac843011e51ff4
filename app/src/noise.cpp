#include "noise.h"

#include <cmath>

namespace qtzq_app {
namespace {

std::uint32_t mix(std::uint32_t z) {
    z ^= z >> 16;
    z *= 0x7FEB352Du;
    z ^= z >> 15;
    z *= 0x846CA68Bu;
    z ^= z >> 16;
    return z;
}

}  // namespace

std::uint32_t Random::next() {
    state_ += 0x9E3779B9u;
    return mix(state_);
}

double Random::gaussian() {
    const double sum = uniform() + uniform() + uniform() + uniform();
    return (sum - 2.0) * 1.7320508075688772;  // the sum's deviation is 1/sqrt(3)
}

double lattice_value(std::int32_t x, std::int32_t y, std::uint32_t seed) {
    const std::uint32_t h = mix(std::uint32_t(x) * 0x8DA6B343u ^ mix(std::uint32_t(y) * 0xD8163841u ^ seed));
    return h * (1.0 / 4294967296.0);
}

double smoothstep(double edge0, double edge1, double x) {
    double t = (x - edge0) / (edge1 - edge0);
    t = t < 0.0 ? 0.0 : (t > 1.0 ? 1.0 : t);
    return t * t * (3.0 - 2.0 * t);
}

double value_noise(double x, double y, double cell_x, double cell_y, std::uint32_t seed) {
    const double fx = x / cell_x, fy = y / cell_y;
    const double ix = std::floor(fx), iy = std::floor(fy);
    const double tx = smoothstep(0.0, 1.0, fx - ix), ty = smoothstep(0.0, 1.0, fy - iy);
    // Materials are at most INT_MAX / 4 pixels, so the lattice indices fit.
    const auto x0 = std::int32_t(ix), y0 = std::int32_t(iy);
    const double a = lattice_value(x0, y0, seed), b = lattice_value(x0 + 1, y0, seed);
    const double c = lattice_value(x0, y0 + 1, seed), d = lattice_value(x0 + 1, y0 + 1, seed);
    const double top = a + (b - a) * tx, bottom = c + (d - c) * tx;
    return top + (bottom - top) * ty;
}

double fractal_noise(double x, double y, double cell, int octaves, std::uint32_t seed) {
    double sum = 0.0, weight = 1.0, total = 0.0;
    for (int i = 0; i < octaves; ++i) {
        sum += weight * value_noise(x, y, cell, cell, seed + std::uint32_t(i) * 1013u);
        total += weight;
        weight *= 0.5;
        cell = cell * 0.5 < 1.0 ? 1.0 : cell * 0.5;
    }
    return sum / total;
}

}  // namespace qtzq_app
