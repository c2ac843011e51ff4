// Exported colour-space conversions: thin wrappers over the inline kernels
// that the library's own pixel loops use.
#include "qtzqeffect/pixel.h"

#include "pixel/hls_kernels.h"
#include "pixel/hsb_kernels.h"
#include "pixel/hsl_kernels.h"
#include "pixel/linear_colour_spaces.h"

using namespace qtzq;

void RGBtoYUV(unsigned char r, unsigned char g, unsigned char b, unsigned char* y,
              unsigned char* u, unsigned char* v) {
    rgb_to_yuv(r, g, b, *y, *u, *v);
}

void YUVtoRGB(unsigned char y, unsigned char u, unsigned char v, unsigned char* r,
              unsigned char* g, unsigned char* b) {
    yuv_to_rgb(y, u, v, *r, *g, *b);
}

void RGBtoYIQ(unsigned char r, unsigned char g, unsigned char b, unsigned char* y,
              unsigned char* i, unsigned char* q) {
    rgb_to_yiq(r, g, b, *y, *i, *q);
}

void YIQtoRGB(unsigned char y, unsigned char i, unsigned char q, unsigned char* r,
              unsigned char* g, unsigned char* b) {
    yiq_to_rgb(y, i, q, *r, *g, *b);
}

void RGBtoXYZ(unsigned char r, unsigned char g, unsigned char b, unsigned char* x,
              unsigned char* y, unsigned char* z) {
    rgb_to_xyz(r, g, b, *x, *y, *z);
}

void XYZtoRGB(unsigned char x, unsigned char y, unsigned char z, unsigned char* r,
              unsigned char* g, unsigned char* b) {
    xyz_to_rgb(x, y, z, *r, *g, *b);
}

void RGBtoHSL(unsigned char r, unsigned char g, unsigned char b, unsigned char* h,
              unsigned char* s, unsigned char* l) {
    rgb_to_hsl(r, g, b, *h, *s, *l);
}

void HSLtoRGB(unsigned char h, unsigned char s, unsigned char l, unsigned char* r,
              unsigned char* g, unsigned char* b) {
    hsl_to_rgb(h, s, l, *r, *g, *b);
}

float HueToRGB(float m1, float m2, float hue) { return hue_to_rgb(m1, m2, hue); }

// No caller inside the library; kept for applications. It shares HSLtoRGB's
// arithmetic so that both give the same bytes for the same HSL colour.
void HSLtoRGB_L(unsigned char h, unsigned char s, unsigned char l, unsigned char* r,
                unsigned char* g, unsigned char* b) {
    hsl_to_rgb(h, s, l, *r, *g, *b);
}

void RGBtoHSL2(unsigned char r, unsigned char g, unsigned char b, unsigned char* h,
               unsigned char* s, unsigned char* l) {
    rgb_to_hsl2(r, g, b, *h, *s, *l);
}

void HSLtoRGB2(unsigned char h, unsigned char s, unsigned char l, unsigned char* r,
               unsigned char* g, unsigned char* b) {
    hsl2_to_rgb(h, s, l, *r, *g, *b);
}

void RGBtoHSB(int r, int g, int b, float& hue, float& saturation, float& brightness) {
    rgb_to_hsb(r, g, b, hue, saturation, brightness);
}

void HSBtoRGB(float hue, float saturation, float brightness, unsigned char& r, unsigned char& g,
              unsigned char& b) {
    hsb_to_rgb(hue, saturation, brightness, r, g, b);
}

void RGBtoHLS(unsigned char r, unsigned char g, unsigned char b, double* h, double* l,
              double* s) {
    rgb_to_hls(r, g, b, *h, *l, *s);
}

void RGBtoHLS_L(unsigned char r, unsigned char g, unsigned char b, double* l) {
    *l = hls_lightness(r, g, b);
}

unsigned int HLStoRGB(double h, double l, double s) { return hls_to_rgb(h, l, s); }

double HLS_Value(double m1, double m2, double hue) { return hls_value(m1, m2, hue); }

void RGBtoIntHLS(int r, int g, int b, int* h, int* l, int* s) {
    rgb_to_int_hls(r, g, b, *h, *l, *s);
}

int intHueToRGB(int m1, int m2, int hue) { return int_hue_to_rgb(m1, m2, hue); }

void intHLStoRGB(int h, int l, int s, int* r, int* g, int* b) {
    int_hls_to_rgb(h, l, s, *r, *g, *b);
}
