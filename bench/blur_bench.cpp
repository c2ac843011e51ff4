// Blurs and sharpening: the recursive Gaussian and the blur brush (their
// cost should not grow with the radius), the unsharp mask (whose kernel
// does grow) and the radial zoom blur. Each reports its scratch memory, and
// each has a scalar twin: the same pass with the vector kernels and fast
// paths off, the reference its speed-up is measured against.
#include <qtzqeffect/blur.h>

#include <string>

#include "qtzq_app/materials.h"

#include "bench_image.h"
#include "suites.h"
#include "timed_pass.h"

namespace qtzq_bench {
namespace {

const int kSharpenRadii[] = {1, 3, 10};

std::string radius_name(const char* family, int radius) {
    return std::string("blur/") + family + "/r" + std::to_string(radius);
}

// OpenCV's Gaussian blur at the sigma the recursive blur uses for the
// radius; the brush's sigma is a little smaller, (radius + 1) / 3.329, and
// is compared with the same anchor.
std::string gaussian_anchor(int radius) {
    return "opencv/GaussianBlur/r" + std::to_string(radius);
}

// `pass`, and its twin NAME/scalar on the scalar reference path.
void add_pass_and_scalar_twin(const std::string& name, const Pass& pass, const std::string& anchor) {
    add_pass(name, pass, anchor, Memory::Measure);
    add_pass(name + "/scalar", on_scalar_path(pass), anchor, Memory::Measure);
}

void zoom_blur(BgraImage& photo) {
    // The zoom blur reads a source and writes a separate destination; the
    // weights are a vignette mask (blue byte), heavier toward the centre.
    static BgraImage source = bench_image().image;
    static BgraImage weights = qtzq_app::make_material("vignette", source.width, source.height, 3,
                                                      qtzq_app::MaterialBase::White);
    RadiusZoomBlur(photo.data(), source.data(), weights.data(), photo.width, photo.height);
}

}  // namespace

void register_blurs() {
    for (int radius : kBlurRadii) {
        add_pass_and_scalar_twin(
            radius_name("gaussian", radius),
            [radius](BgraImage& photo) {
                GaussianBlurFilterUtil::GetInst()->CreateBlurEffect(
                    photo.data(), photo.width, photo.height, 4, radius, radius);
            },
            gaussian_anchor(radius));
    }
    for (int radius : kBlurRadii) {
        add_pass_and_scalar_twin(
            radius_name("iir_brush", radius),
            [radius](BgraImage& photo) {
                GaussIIRBlurBrush(photo.data(), photo.width, photo.height, radius, radius);
            },
            gaussian_anchor(radius));
    }
    for (int radius : kSharpenRadii) {
        add_pass_and_scalar_twin(
            radius_name("unsharp", radius),
            [radius](BgraImage& photo) {
                CSharp sharpen;
                sharpen.useEffect(photo.data(), photo.width, photo.height, radius, 0.8f);
            },
            "");
    }
    add_pass_and_scalar_twin("blur/zoom", zoom_blur, "");
}

}  // namespace qtzq_bench
