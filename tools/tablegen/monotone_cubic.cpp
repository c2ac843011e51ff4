#include "monotone_cubic.h"

#include <cmath>
#include <cstddef>

namespace tablegen {
namespace {

int sign(double v) { return (v > 0) - (v < 0); }

// Slope at an end point: a three-point estimate, limited so that the end
// segment stays monotone.
double end_slope(double h0, double h1, double delta0, double delta1) {
    const double d = ((2.0 * h0 + h1) * delta0 - h0 * delta1) / (h0 + h1);
    if (sign(d) != sign(delta0)) return 0.0;
    if (sign(delta0) != sign(delta1) && std::fabs(d) > std::fabs(3.0 * delta0)) return 3.0 * delta0;
    return d;
}

// Slopes at the samples: zero at local extrema and flat runs, else the
// weighted harmonic mean of the neighbouring secants.
std::vector<double> sample_slopes(const std::vector<Sample>& s) {
    const std::size_t n = s.size();
    std::vector<double> h(n - 1), delta(n - 1), slope(n, 0.0);
    for (std::size_t k = 0; k + 1 < n; ++k) {
        h[k] = s[k + 1].x - s[k].x;
        delta[k] = (s[k + 1].y - s[k].y) / h[k];
    }
    if (n == 2) {
        slope[0] = slope[1] = delta[0];
        return slope;
    }
    for (std::size_t k = 1; k + 1 < n; ++k) {
        if (sign(delta[k - 1]) * sign(delta[k]) <= 0) continue;
        const double w1 = 2.0 * h[k] + h[k - 1];
        const double w2 = h[k] + 2.0 * h[k - 1];
        slope[k] = (w1 + w2) / (w1 / delta[k - 1] + w2 / delta[k]);
    }
    slope[0] = end_slope(h[0], h[1], delta[0], delta[1]);
    slope[n - 1] = end_slope(h[n - 2], h[n - 3], delta[n - 2], delta[n - 3]);
    return slope;
}

unsigned char to_byte(double v) {
    const double rounded = std::floor(v + 0.5);
    if (rounded <= 0.0) return 0;
    if (rounded >= 255.0) return 255;
    return static_cast<unsigned char>(rounded);
}

// Cubic Hermite segment between samples a and b at index x.
double hermite(const Sample& a, const Sample& b, double slope_a, double slope_b, int x) {
    const double h = b.x - a.x;
    const double t = (x - a.x) / h;
    const double t2 = t * t;
    const double t3 = t2 * t;
    const double h00 = 2.0 * t3 - 3.0 * t2 + 1.0;
    const double h10 = t3 - 2.0 * t2 + t;
    const double h01 = -2.0 * t3 + 3.0 * t2;
    const double h11 = t3 - t2;
    return h00 * a.y + h10 * h * slope_a + h01 * b.y + h11 * h * slope_b;
}

}  // namespace

std::array<unsigned char, 256> interpolate_curve(const std::vector<Sample>& samples) {
    std::array<unsigned char, 256> curve{};
    const std::vector<double> slope = sample_slopes(samples);
    std::size_t k = 0;
    for (int x = 0; x < 256; ++x) {
        if (x <= samples.front().x) {
            curve[x] = to_byte(samples.front().y);
            continue;
        }
        if (x >= samples.back().x) {
            curve[x] = to_byte(samples.back().y);
            continue;
        }
        while (samples[k + 1].x < x) ++k;
        curve[x] = x == samples[k + 1].x
                       ? to_byte(samples[k + 1].y)
                       : to_byte(hermite(samples[k], samples[k + 1], slope[k], slope[k + 1], x));
    }
    return curve;
}

}  // namespace tablegen
