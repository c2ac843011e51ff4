// A generated photo-like test scene, used when no input photo is given: a
// sky gradient, skin tones, saturated colour patches, fine detail and a
// grey ramp, so that every kind of effect has something to show.
#ifndef QTZQ_TOOLS_TEST_SCENE_H
#define QTZQ_TOOLS_TEST_SCENE_H

#include "png_io.h"

namespace qtzq_tools {

BgraImage make_test_scene(int width = 480, int height = 320);

}  // namespace qtzq_tools

#endif  // QTZQ_TOOLS_TEST_SCENE_H
