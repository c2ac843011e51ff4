// Colour lookup tables and effect strength: the looks marked as colour maps
// are exactly a per-pixel lookup in the table built from them, the others
// are refused, and the table forms hold what they claim.
#include <algorithm>
#include <sstream>
#include <tuple>

#include "app/app_test.h"
#include "qtzq_app/catalogue.h"
#include "qtzq_app/colour_lut.h"
#include "qtzq_app/effect_runner.h"
#include "qtzq_app/errors.h"
#include "qtzq_app/strength.h"

namespace qtzq_app_test {
namespace {

using namespace qtzq_app;

// The proof of the catalogue's marks: on random images of several sizes
// (every alpha value), each colour-map look gives every pixel exactly the
// colour its table holds for the pixel's input colour, and keeps alpha.
TEST(ColourLut, ColourMapLooksAreExactlyTheirTableAndOthersAreRefused) {
    int colour_maps = 0;
    for (const auto& info : catalogue()) {
        if (info.mapping != Mapping::ColourMap) {
            EXPECT_THROW(hald_clut(info, 2), RequestError) << info.id;
            EXPECT_NE(lut_refusal(info), "") << info.id;
            continue;
        }
        ++colour_maps;
        const BgraImage full = hald_clut(info, kHaldLevelMax);
        const std::vector<std::tuple<int, int, unsigned>> sizes = {{97, 61, 3}, {1, 1, 4}, {640, 8, 5}};
        for (const auto& [width, height, seed] : sizes) {
            const BgraImage input = sample_photo(width, height, seed);
            BgraImage output = input;
            std::vector<BgraImage> none;
            run_effect(info, output, none, nullptr);
            for (std::size_t i = 0; i < input.pixels.size(); i += 4) {
                const unsigned char* in = &input.pixels[i];
                const unsigned char* want = lookup(full, in[2], in[1], in[0]);
                const unsigned char got[4] = {output.pixels[i], output.pixels[i + 1],
                                              output.pixels[i + 2], output.pixels[i + 3]};
                ASSERT_TRUE(got[0] == want[0] && got[1] == want[1] && got[2] == want[2] &&
                            got[3] == in[3])
                    << info.id << " pixel " << i / 4 << " of " << width << "x" << height;
            }
        }
    }
    EXPECT_EQ(colour_maps, 9);
}

// Level 2 in full: 4 steps per channel (0, 85, 170, 255), red fastest, in
// an 8 x 8 square; level 16 is every colour in the order of its value.
TEST(ColourLut, HaldIdentityHoldsItsStepsInOrder) {
    const BgraImage two = hald_identity(2);
    ASSERT_EQ(two.width, 8);
    ASSERT_EQ(two.height, 8);
    const unsigned char steps[4] = {0, 85, 170, 255};
    for (int n = 0; n < 64; ++n) {
        const unsigned char* p = two.at(n % 8, n / 8);
        EXPECT_EQ(p[2], steps[n % 4]);
        EXPECT_EQ(p[1], steps[n / 4 % 4]);
        EXPECT_EQ(p[0], steps[n / 16]);
        EXPECT_EQ(p[3], 255);
    }
    const BgraImage full = hald_identity(16);
    const std::vector<std::tuple<int, int, int>> colours = {{0, 0, 0}, {255, 255, 255}, {1, 2, 3}, {200, 7, 99}};
    for (const auto& [r, g, b] : colours) {
        const unsigned char* p = lookup(full, r, g, b);
        EXPECT_EQ(p[0] * 65536 + p[1] * 256 + p[2], b * 65536 + g * 256 + r);
    }
}

// A .cube of size 256 is the table itself; size 3 takes its middle entry
// (input 127.5) halfway between the bytes 127 and 128; the text form has
// the header other programs read and red fastest.
TEST(ColourLut, CubeSamplesTheTable) {
    const EffectInfo& film = *find_effect("film");
    const BgraImage full = hald_clut(film, kHaldLevelMax);
    const std::vector<float> exact = cube_table(full, 256);
    const std::vector<std::tuple<int, int, int>> colours = {{0, 0, 0}, {255, 0, 9}, {12, 200, 255}};
    for (const auto& [r, g, b] : colours) {
        const float* e = &exact[((std::size_t(b) * 256 + g) * 256 + r) * 3];
        const unsigned char* p = lookup(full, r, g, b);
        EXPECT_EQ(e[0], float(p[2] / 255.0));
        EXPECT_EQ(e[2], float(p[0] / 255.0));
    }
    const std::vector<float> three = cube_table(full, 3);
    const float* middle = &three[13 * 3];
    double corners = 0;
    for (int corner = 0; corner < 8; ++corner)
        corners += lookup(full, 127 + (corner & 1), 127 + (corner >> 1 & 1), 127 + (corner >> 2))[2];
    EXPECT_FLOAT_EQ(middle[0], float(corners / 8 / 255.0));
    std::ostringstream text;
    write_cube(text, three, 3, "1020 StyleFilm");
    const std::string cube = text.str();
    EXPECT_EQ(cube.rfind("TITLE \"1020 StyleFilm\"\nLUT_3D_SIZE 3\n", 0), 0u);
    EXPECT_EQ(std::count(cube.begin(), cube.end(), '\n'), 4 + 27);
}

// The strength mix, worked by hand: (original x (100 - P) + result x P + 50)
// / 100 per colour channel, alpha from the result.
TEST(Strength, MixesPerChannelWithRoundingAndKeepsResultAlpha) {
    const unsigned char original[8] = {200, 0, 255, 9, 1, 2, 3, 4};
    const std::vector<std::tuple<int, std::vector<unsigned char>>> cases = {
        {100, {100, 255, 0, 77, 10, 20, 30, 40}},
        {30, {170, 77, 179, 77, 4, 7, 11, 40}},
        {50, {150, 128, 128, 77, 6, 11, 17, 40}},
        {0, {200, 0, 255, 77, 1, 2, 3, 40}},
    };
    for (const auto& [percent, want] : cases) {
        std::vector<unsigned char> result = {100, 255, 0, 77, 10, 20, 30, 40};
        mix_strength(original, result.data(), 2, percent);
        EXPECT_EQ(result, want) << percent;
    }
}

}  // namespace
}  // namespace qtzq_app_test
