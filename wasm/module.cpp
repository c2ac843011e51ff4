// The C entry points of the WebAssembly module, called by the JavaScript
// wrapper (wasm/js/index.js), which owns every check of the caller's
// arguments. Pixels cross the boundary as RGBA, the order of the web's
// ImageData; they are turned into the library's BGRA and back in place.
#include <malloc.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include <emscripten/emscripten.h>
#include <qtzqeffect/blur.h>

#include "qtzq_app/catalogue.h"
#include "qtzq_app/effect_defaults.h"
#include "qtzq_app/effect_runner.h"
#include "qtzq_app/image_limits.h"
#include "qtzq_app/test_scene.h"

#include "catalogue_json.h"

using namespace qtzq_app;

namespace {

// RGBA <-> BGRA: the same swap both ways; alpha stays where it is. A
// pixel at a time as a little-endian word, which vectorises.
void swap_red_blue(unsigned char* pixels, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        std::uint32_t pixel;
        std::memcpy(&pixel, pixels + i * 4, 4);
        pixel = (pixel & 0xff00ff00u) | ((pixel >> 16) & 0xffu) | ((pixel & 0xffu) << 16);
        std::memcpy(pixels + i * 4, &pixel, 4);
    }
}

const EffectInfo* effect_by_id(int id) {
    for (const auto& info : catalogue())
        if (info.id == id) return &info;
    return nullptr;
}

// The caller's material for a slot (RGBA, the photo's size) or the
// generated default.
BgraImage material_for(const EffectInfo& info, int slot, const unsigned char* given, int width,
                       int height) {
    if (!given) return default_material(info, slot, width, height);
    BgraImage image(width, height);
    std::memcpy(image.data(), given, image.pixels.size());
    swap_red_blue(image.data(), image.pixels.size() / 4);
    return image;
}

}  // namespace

extern "C" {

// The catalogue as a JSON array (see catalogue_json.h); owned by the module.
EMSCRIPTEN_KEEPALIVE const char* qtzq_catalogue_json() {
    static const std::string json = catalogue_json(catalogue());
    return json.c_str();
}

// The id of the effect an id or name stands for, as `qtzq apply` reads
// it; 0 when nothing matches.
EMSCRIPTEN_KEEPALIVE int qtzq_find_effect(const char* name) {
    const EffectInfo* info = find_effect(name);
    return info ? info->id : 0;
}

EMSCRIPTEN_KEEPALIVE int qtzq_image_size_supported(int width, int height) {
    return width > 0 && height > 0 &&
           image_size_supported(std::uint64_t(width), std::uint64_t(height));
}

// Applies effect `id` to `rgba` (width * height pixels) in place.
// `materials` holds three pointers, each an RGBA image of the photo's size
// or null for the generated default; `tables` is a blend table set or null
// for the default. Returns 0, or 1 for an unknown id.
EMSCRIPTEN_KEEPALIVE int qtzq_apply_rgba(int id, unsigned char* rgba, int width, int height,
                                          unsigned char* const* materials,
                                          unsigned char* tables) {
    const EffectInfo* info = effect_by_id(id);
    if (!info) return 1;
    std::vector<BgraImage> inputs;
    for (int slot = 0; slot < material_count(info->overload); ++slot)
        inputs.push_back(material_for(*info, slot, materials[slot], width, height));
    std::vector<unsigned char> default_tables;
    if (needs_tables(info->overload) && !tables) {
        default_tables = default_table_set(*info);
        tables = default_tables.data();
    }
    const std::size_t count = std::size_t(width) * std::size_t(height);
    swap_red_blue(rgba, count);
    run_effect(*info, rgba, width, height, inputs, tables);
    swap_red_blue(rgba, count);
    return 0;
}

// The library's recursive Gaussian blur of `rgba` in place, the same radius
// both ways. It filters the three colour channels alike and leaves alpha
// alone, so RGBA needs no conversion.
EMSCRIPTEN_KEEPALIVE void qtzq_gaussian_blur_rgba(unsigned char* rgba, int width, int height,
                                                  double radius) {
    GaussianBlurFilterUtil::GetInst()->CreateBlurEffect(rgba, width, height, 4, radius, radius);
}

// The built-in test scene as RGBA, in a buffer the caller frees.
EMSCRIPTEN_KEEPALIVE unsigned char* qtzq_test_scene(int width, int height) {
    BgraImage scene = make_test_scene(width, height);
    auto* rgba = static_cast<unsigned char*>(std::malloc(scene.pixels.size()));
    if (!rgba) return nullptr;
    std::memcpy(rgba, scene.data(), scene.pixels.size());
    swap_red_blue(rgba, scene.pixels.size() / 4);
    return rgba;
}

// Bytes of the heap in use, for the tests that check calls leak nothing.
EMSCRIPTEN_KEEPALIVE std::size_t qtzq_heap_in_use() { return mallinfo().uordblks; }

}  // extern "C"
