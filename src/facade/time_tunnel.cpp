// Qtzqeffect's two-step time tunnel.
#include "qtzqeffect/facade.h"
#include "qtzqeffect/styles.h"

unsigned char* Qtzqeffect::effectShiGuangSuiDao(unsigned char* image, unsigned char* material,
                                                int width, int height) {
    return StyleChuanYue1(image, material, width, height);
}

int Qtzqeffect::effectShiGuangSuiDaoResult(unsigned char* image, unsigned char* material,
                                           int width, int height) {
    StyleChuanYue3(image, material, width, height);
    return 1;
}
