#include "qtzq_app/effect_runner.h"

#include <mutex>

#include <qtzqeffect/facade.h>

namespace qtzq_app {
namespace {

std::mutex& shared_state_mutex() {
    static std::mutex mutex;
    return mutex;
}

void dispatch(const EffectInfo& info, unsigned char* image, int w, int h,
              std::vector<BgraImage>& m, unsigned char* tables) {
    Qtzqeffect facade;
    switch (info.overload) {
        case Overload::Image: facade.effect(info.id, image, w, h); break;
        case Overload::OneMaterial: facade.effect(info.id, image, m[0].data(), w, h); break;
        case Overload::TwoMaterials:
            facade.effect(info.id, image, m[0].data(), m[1].data(), w, h);
            break;
        case Overload::ThreeMaterials:
            // The result of this overload carries no meaning.
            facade.effect(info.id, image, m[0].data(), m[1].data(), m[2].data(), w, h);
            break;
        case Overload::Tables:
            facade.effect(info.id, image, m[0].data(), m[1].data(), w, h, tables, 0);
            break;
    }
}

}  // namespace

void run_effect(const EffectInfo& info, unsigned char* pixels, int width, int height,
                std::vector<BgraImage>& materials, unsigned char* tables) {
    if (info.serialised) {
        std::lock_guard<std::mutex> lock(shared_state_mutex());
        dispatch(info, pixels, width, height, materials, tables);
    } else {
        dispatch(info, pixels, width, height, materials, tables);
    }
}

void run_effect(const EffectInfo& info, BgraImage& photo, std::vector<BgraImage>& materials,
                unsigned char* tables) {
    run_effect(info, photo.data(), photo.width, photo.height, materials, tables);
}

}  // namespace qtzq_app
