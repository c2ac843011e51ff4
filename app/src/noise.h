// Deterministic pseudo-random numbers and smooth noise for the material
// generators: integer hashing only, so every platform draws the same values.
#ifndef QTZQ_APP_NOISE_H
#define QTZQ_APP_NOISE_H

#include <cstdint>

namespace qtzq_app {

// A small sequential generator (splitmix32-style mixing of a counter).
class Random {
public:
    explicit Random(std::uint32_t seed) : state_(seed * 0x9E3779B9u + 0x7F4A7C15u) {}
    std::uint32_t next();
    // Uniform in [0, 1).
    double uniform() { return next() * (1.0 / 4294967296.0); }
    // Uniform in [low, high).
    double range(double low, double high) { return low + (high - low) * uniform(); }
    // Roughly normal with mean 0 and deviation 1 (sum of four uniforms).
    double gaussian();

private:
    std::uint32_t state_;
};

// Hash of a lattice point, uniform in [0, 1).
double lattice_value(std::int32_t x, std::int32_t y, std::uint32_t seed);

// Smooth value noise in [0, 1): lattice values every `cell_x` by `cell_y`
// pixels, blended with a smoothstep.
double value_noise(double x, double y, double cell_x, double cell_y, std::uint32_t seed);

// Sum of `octaves` value noises, each half the cell size and half the weight
// of the one before, scaled back to [0, 1).
double fractal_noise(double x, double y, double cell, int octaves, std::uint32_t seed);

// 0 below `edge0`, 1 above `edge1`, a smooth cubic in between.
double smoothstep(double edge0, double edge1, double x);

}  // namespace qtzq_app

#endif  // QTZQ_APP_NOISE_H
