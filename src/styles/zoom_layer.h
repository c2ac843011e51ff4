// A zoom-blurred layer of a photo and its blend back into the photo, shared
// by the presets that pull the photo toward its centre.
#ifndef QTZQ_STYLES_ZOOM_LAYER_H
#define QTZQ_STYLES_ZOOM_LAYER_H

namespace qtzq {

// New pixel buffer (new[], the caller deletes it with delete[]) of the
// photo's size: RadiusZoomBlur of `image` weighted by byte 0 of each
// `weights` pixel. The buffer starts as a copy of the photo, so that pixels
// whose samples all weigh 0 keep the photo's colours (through the zoom
// contrast curve) with alpha 0. Its alpha is the mean sample weight.
unsigned char* zoom_blurred_layer(unsigned char* image, unsigned char* weights, int width,
                                  int height);

// Cross-fades every photo pixel toward the layer pixel by the layer's own
// alpha (0 keeps the photo, 255 takes the layer). The photo's alpha is left
// alone; the layer is only read.
void blend_layer_by_alpha(unsigned char* image, unsigned char* layer, int width, int height);

}  // namespace qtzq

#endif  // QTZQ_STYLES_ZOOM_LAYER_H
