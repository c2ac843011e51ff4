#include "qtzq_app/colour_lut.h"

#include <cmath>
#include <cstdio>

#include "qtzq_app/effect_runner.h"
#include "qtzq_app/errors.h"

namespace qtzq_app {
namespace {

unsigned char step_value(int step, int steps) {
    return static_cast<unsigned char>((step * 255 + (steps - 1) / 2) / (steps - 1));
}

// The colour of `full` at a fractional input position (red, green, blue),
// interpolated linearly along all three axes, as red, green, blue in 0..1.
void sample(const BgraImage& full, const double (&at)[3], float* rgb) {
    int low[3], high[3];
    double weight[3];
    for (int axis = 0; axis < 3; ++axis) {
        low[axis] = int(std::floor(at[axis]));
        high[axis] = low[axis] < 255 ? low[axis] + 1 : 255;
        weight[axis] = at[axis] - low[axis];
    }
    double sum[3] = {0.0, 0.0, 0.0};
    for (int corner = 0; corner < 8; ++corner) {
        double w = 1.0;
        int index[3];
        for (int axis = 0; axis < 3; ++axis) {
            const bool up = (corner >> axis) & 1;
            index[axis] = up ? high[axis] : low[axis];
            w *= up ? weight[axis] : 1.0 - weight[axis];
        }
        if (w == 0.0) continue;
        const unsigned char* p = lookup(full, index[0], index[1], index[2]);
        for (int channel = 0; channel < 3; ++channel) sum[channel] += w * p[2 - channel];
    }
    for (int channel = 0; channel < 3; ++channel) rgb[channel] = float(sum[channel] / 255.0);
}

}  // namespace

BgraImage hald_identity(int level) {
    const int side = level * level * level, steps = level * level;
    BgraImage image(side, side);
    unsigned char* p = image.data();
    for (int blue = 0; blue < steps; ++blue)
        for (int green = 0; green < steps; ++green)
            for (int red = 0; red < steps; ++red, p += 4) {
                p[0] = step_value(blue, steps);
                p[1] = step_value(green, steps);
                p[2] = step_value(red, steps);
                p[3] = 255;
            }
    return image;
}

BgraImage hald_clut(const EffectInfo& info, int level) {
    const std::string refusal = lut_refusal(info);
    if (!refusal.empty()) throw RequestError(refusal);
    BgraImage clut = hald_identity(level);
    std::vector<BgraImage> no_materials;
    run_effect(info, clut, no_materials, nullptr);
    return clut;
}

std::vector<float> cube_table(const BgraImage& full, int size) {
    std::vector<float> table(std::size_t(size) * size * size * 3);
    float* entry = table.data();
    const double scale = 255.0 / (size - 1);
    for (int blue = 0; blue < size; ++blue)
        for (int green = 0; green < size; ++green)
            for (int red = 0; red < size; ++red, entry += 3) {
                const double at[3] = {red * scale, green * scale, blue * scale};
                sample(full, at, entry);
            }
    return table;
}

void write_cube(std::ostream& out, const std::vector<float>& table, int size,
                const std::string& title) {
    out << "TITLE \"" << title << "\"\nLUT_3D_SIZE " << size
        << "\nDOMAIN_MIN 0.0 0.0 0.0\nDOMAIN_MAX 1.0 1.0 1.0\n";
    char line[64];
    for (std::size_t i = 0; i < table.size(); i += 3) {
        std::snprintf(line, sizeof line, "%.6f %.6f %.6f\n", table[i], table[i + 1], table[i + 2]);
        out << line;
    }
}

}  // namespace qtzq_app
