// YiZhou: a steep tone curve, then the photo pulled toward its centre by a
// zoom blur whose strength the material paints.
#include "qtzqeffect/styles.h"
#include "styles/curve_pass.h"
#include "styles/zoom_layer.h"

void StyleYiZhou(unsigned char* image, unsigned char* material, int width, int height) {
    qtzq::apply_curves(image, width, height, qtzq::RgbCurves::from_store(33));
    unsigned char* layer = qtzq::zoom_blurred_layer(image, material, width, height);
    qtzq::blend_layer_by_alpha(image, layer, width, height);
    delete[] layer;
}
