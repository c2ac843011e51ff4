// A generated photo-like test scene, used when no input photo is given: a
// sky gradient, skin tones, saturated colour patches, fine detail and a
// grey ramp, so that every kind of effect has something to show.
#ifndef QTZQ_APP_TEST_SCENE_H
#define QTZQ_APP_TEST_SCENE_H

#include "qtzq_app/png_io.h"

namespace qtzq_app {

BgraImage make_test_scene(int width = 480, int height = 320);

}  // namespace qtzq_app

#endif  // QTZQ_APP_TEST_SCENE_H
