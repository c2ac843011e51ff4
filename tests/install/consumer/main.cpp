// Applies the film look to one black pixel through the installed library.
#include <qtzqeffect/qtzqeffect.h>

int main() {
    unsigned char pixel[4] = {0, 0, 0, 255};
    Qtzqeffect effects;
    effects.effect(1020, pixel, 1, 1);
    return pixel[0] == 51 && pixel[1] == 37 && pixel[2] == 19 && pixel[3] == 255 ? 0 : 1;
}
