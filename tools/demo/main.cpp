// qtzq-demo: applies the film look (effect 1020) to a generated test scene
// and writes the scene before and after, side by side, as a PNG.
//
//   qtzq-demo [OUTPUT.png]      (default: qtzq-demo.png)
#include <cstring>
#include <iostream>
#include <string>

#include <qtzqeffect/qtzqeffect.h>

#include "png_io.h"
#include "test_scene.h"

using qtzq_tools::BgraImage;

int main(int argc, char** argv) {
    if (argc > 2 || (argc == 2 && (!std::strcmp(argv[1], "--help") || !std::strcmp(argv[1], "-h")))) {
        std::cout << "usage: qtzq-demo [OUTPUT.png]\n"
                     "Applies the film look (effect 1020) to a generated test scene and\n"
                     "writes before | after side by side.\n";
        return argc > 2 ? 2 : 0;
    }
    const std::string output = argc == 2 ? argv[1] : "qtzq-demo.png";

    const BgraImage before = qtzq_tools::make_test_scene();
    BgraImage after = before;
    Qtzqeffect effects;
    effects.effect(1020, after.data(), after.width, after.height);

    BgraImage sheet(before.width * 2, before.height);
    for (int y = 0; y < before.height; ++y) {
        const std::size_t row = std::size_t(before.width) * 4;
        std::memcpy(sheet.at(0, y), before.pixels.data() + y * row, row);
        std::memcpy(sheet.at(before.width, y), after.pixels.data() + y * row, row);
    }
    std::string error;
    if (!qtzq_tools::write_png(output, sheet, error)) {
        std::cerr << "qtzq-demo: " << error << '\n';
        return 1;
    }
    std::cout << "wrote " << output << " (left: generated scene, right: effect 1020, film)\n";
    return 0;
}
