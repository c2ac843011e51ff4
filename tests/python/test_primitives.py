"""The whole-image primitives: each reaches its library function with the
right parameters (checked by results that follow from the definitions)."""

import numpy as np
import pytest

import qtzqeffect as qe
from samples import sample_image

PHOTO = sample_image()
LAYER = sample_image(seed=8)
A, B = PHOTO[..., :3].astype(int), LAYER[..., :3].astype(int)
FLAT = np.full((24, 32, 4), 90, np.uint8)


def colours(image):
    return image[..., :3].astype(int)


def spread(image):
    return (colours(image).max(axis=-1) - colours(image).min(axis=-1)).mean()


# Colours that follow from the definitions: (result, expected, tolerance).
EQUAL = {
    "brightness": lambda: (colours(qe.brightness_contrast(PHOTO, 40)), np.minimum(A + 40, 255), 0),
    "contrast": lambda: (colours(qe.brightness_contrast(PHOTO, -28, -100)), 100, 0),
    "gamma-red-only": lambda: (colours(qe.gamma(PHOTO, 2.0, 1.0, 1.0))[..., :2], A[..., :2], 1),
    "blur-rows-only": lambda: (qe.gaussian_blur(np.repeat(PHOTO[:, :1], 64, 1), 5, 0),
                               np.repeat(PHOTO[:, :1], 64, 1), 0),
    "unsharp-none": lambda: (colours(qe.unsharp(PHOTO, 2, 0.0)), A, 0),
    "balance-red": lambda: (colours(qe.color_balance(PHOTO, 60, 0, 0, "midtones", False))[..., :2],
                            A[..., :2], 0),
    "curve-green": lambda: (qe.curve(PHOTO, [(0, 255), (255, 0)], "green")[..., [0, 2, 3]],
                            PHOTO[..., [0, 2, 3]], 0),
    "screen": lambda: (colours(qe.blend("screen", PHOTO, LAYER)),
                       np.minimum(A + B - (A * B >> 8), 255), 0),
}
# Properties of one result.
HOLDS = {
    "saturate-matrix": lambda: spread(qe.saturate(PHOTO, 60, "matrix")) > spread(PHOTO),
    "desaturate-yuv": lambda: np.abs(np.diff(colours(qe.saturate(PHOTO, -100, "yuv")))).max() <= 1,
    "blur-smooths": lambda: colours(qe.gaussian_blur(PHOTO, 4))[..., 2].std() < A[..., 2].std() / 2,
    "unsharp-opaque": lambda: (qe.unsharp(FLAT, 3, 2.0)[..., 3] == 255).all(),
    "levels-stretch": lambda: {(c.min(), c.max()) for c in np.moveaxis(
        colours(qe.auto_levels(60 + PHOTO // 2)), -1, 0)} == {(0, 255)},
}


@pytest.mark.parametrize("name", EQUAL)
def test_results_that_follow_from_the_definitions(name):
    result, expected, tolerance = EQUAL[name]()
    assert np.abs(result.astype(int) - expected).max() <= tolerance


@pytest.mark.parametrize("name", HOLDS)
def test_properties_of_the_results(name):
    assert HOLDS[name]()


@pytest.mark.parametrize("mode", qe.blend_modes(), ids=lambda mode: mode.name)
def test_every_blend_mode_by_either_name_keeps_alpha(mode):
    by_name = qe.blend(mode.name, PHOTO, LAYER, 0.7)
    np.testing.assert_array_equal(by_name, qe.blend(mode.function.upper(), PHOTO, LAYER, 0.7))
    np.testing.assert_array_equal(by_name[..., 3], PHOTO[..., 3])
    if not mode.uses_opacity:
        np.testing.assert_array_equal(by_name, qe.blend(mode.name, PHOTO, LAYER, 0.2))
