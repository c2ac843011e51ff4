// Qtzqeffect: construction, the two utilities and dispatch by effect id.
#include "qtzqeffect/facade.h"

#include "facade/effect_catalogue.h"
#include "pixel/image_walk.h"

using namespace qtzq;

namespace {

// What every overload but the three-material one returns, whatever the id.
constexpr int kDispatched = 1;

// The three-material overload answers every id it does not accept with the
// one id it does accept. Callers must not test its result.
constexpr int kThreeMaterialId = 1048;

}  // namespace

// Out of line on purpose: applications link against the constructor.
Qtzqeffect::Qtzqeffect() {}

int Qtzqeffect::randInt(int, int) { return 1; }

int Qtzqeffect::sample(unsigned char* image, int width, int height) {
    for_each_pixel(image, width, height, [](unsigned char* px) {
        px[1] = 0;
        px[2] = 0;
    });
    return 0;
}

int Qtzqeffect::effect(int id, unsigned char* image, int width, int height) {
    if (const auto preset = find_preset(kSingleImageEffects, id)) preset(image, width, height);
    return kDispatched;
}

int Qtzqeffect::effect(int id, unsigned char* image, unsigned char* material, int width,
                       int height) {
    if (const auto preset = find_preset(kOneMaterialEffects, id))
        preset(image, material, width, height);
    return kDispatched;
}

int Qtzqeffect::effect(int id, unsigned char* image, unsigned char* material1,
                       unsigned char* material2, int width, int height) {
    if (const auto preset = find_preset(kTwoMaterialEffects, id))
        preset(image, material1, material2, width, height);
    return kDispatched;
}

int Qtzqeffect::effect(int id, unsigned char* image, unsigned char* material1,
                       unsigned char* material2, unsigned char* material3, int width,
                       int height) {
    const auto preset = find_preset(kThreeMaterialEffects, id);
    if (!preset) return kThreeMaterialId;
    preset(image, material1, material2, material3, width, height);
    return kDispatched;
}

int Qtzqeffect::effect(int id, unsigned char* image, unsigned char* material1,
                       unsigned char* material2, int width, int height, unsigned char* tables,
                       int /*reserved*/) {
    if (const auto preset = find_preset(kBlendTableEffects, id))
        preset(image, material1, material2, width, height, tables);
    return kDispatched;
}

int Qtzqeffect::effect(int, unsigned char*, int, int, unsigned char*, int) { return kDispatched; }

int Qtzqeffect::effect(int, unsigned char*, unsigned char*, int, int, unsigned char*, int) {
    return kDispatched;
}
