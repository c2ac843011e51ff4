"""The whole-image primitives: each reaches its library function with the
right parameters (checked by results that follow from the definitions)."""

import numpy as np
import pytest

import qtzqeffect as qe
from samples import sample_image


def constant(value, width=32, height=24):
    return np.full((height, width, 4), value, np.uint8)


def colours(image):
    return image[..., :3].astype(int)


def test_brightness_shifts_and_contrast_flattens(photo):
    np.testing.assert_array_equal(qe.brightness_contrast(photo), photo)
    brighter = qe.brightness_contrast(photo, 40)
    np.testing.assert_array_equal(colours(brighter), np.minimum(colours(photo) + 40, 255))
    flat = qe.brightness_contrast(photo, -28, -100)
    assert (flat[..., :3] == 100).all()
    np.testing.assert_array_equal(flat[..., 3], photo[..., 3])


@pytest.mark.parametrize("mode", ["matrix", "yuv", "hsl"])
def test_saturation_modes(photo, mode):
    stronger = colours(qe.saturate(photo, 60, mode))
    spread = lambda c: (c.max(axis=-1) - c.min(axis=-1)).mean()
    assert spread(stronger) > spread(colours(photo))
    if mode != "hsl":  # the byte HSL shift cannot take all colour away
        grey = qe.saturate(photo, -100, mode)
        assert np.abs(np.diff(colours(grey), axis=-1)).max() <= 1
    np.testing.assert_array_equal(qe.saturate(photo, 0, "matrix"), photo)


def test_gamma_per_channel(photo):
    assert np.abs(colours(qe.gamma(photo, 1.0)) - colours(photo)).max() <= 1
    red_only = qe.gamma(photo, 2.0, 1.0, 1.0)
    assert np.abs(colours(red_only)[..., :2] - colours(photo)[..., :2]).max() <= 1
    assert (colours(red_only)[..., 2] >= colours(photo)[..., 2] - 1).all()
    assert (red_only[..., 2] > photo[..., 2]).any()
    np.testing.assert_array_equal(qe.gamma(photo, 0.5), qe.gamma(photo, 0.5, 0.5, 0.5))


def test_gaussian_blur_smooths_and_keeps_constants(photo):
    np.testing.assert_array_equal(qe.gaussian_blur(constant(77), 6), constant(77))
    np.testing.assert_array_equal(qe.gaussian_blur(photo, 0), photo)
    blurred = qe.gaussian_blur(photo, 4)
    assert colours(blurred)[..., 2].std() < colours(photo)[..., 2].std() / 2
    np.testing.assert_array_equal(blurred[..., 3], photo[..., 3])
    # Rows of one value stay as they are when only rows are blurred.
    rows = np.repeat(photo[:, :1], photo.shape[1], axis=1)
    np.testing.assert_array_equal(qe.gaussian_blur(rows, 5, 0), rows)


def test_unsharp_sharpens_and_makes_opaque(photo):
    flat = qe.unsharp(constant(90), 3, 2.0)
    assert (flat[..., :3] == 90).all() and (flat[..., 3] == 255).all()
    sharpened = qe.unsharp(photo, 2, 1.0)
    assert colours(sharpened)[..., 1].std() >= colours(photo)[..., 1].std()
    np.testing.assert_array_equal(qe.unsharp(photo, 2, 0.0)[..., :3], photo[..., :3])


def test_auto_levels_stretch_each_channel():
    image = sample_image(opaque=False)
    image[..., :3] = 60 + image[..., :3] // 2  # every channel in 60..187
    levelled = qe.auto_levels(image)
    for channel in range(3):
        assert levelled[..., channel].min() == 0 and levelled[..., channel].max() == 255
    np.testing.assert_array_equal(levelled[..., 3], image[..., 3])


def test_color_balance_moves_one_axis(photo):
    np.testing.assert_array_equal(qe.color_balance(photo, preserve_luminosity=False), photo)
    redder = colours(qe.color_balance(photo, 60, 0, 0, "midtones", False))
    assert (redder[..., 2] >= colours(photo)[..., 2]).all()
    np.testing.assert_array_equal(redder[..., :2], colours(photo)[..., :2])
    bluer = colours(qe.color_balance(photo, 0, 0, 60, "highlights", False))
    np.testing.assert_array_equal(bluer[..., 1:], colours(photo)[..., 1:])


def test_curves_map_the_chosen_channels(photo):
    # The drawn curves follow their Bezier pieces to within a level or two.
    assert np.abs(colours(qe.curve(photo, [(0, 0), (255, 255)])) - colours(photo)).max() <= 2
    inverted = qe.curve(photo, [(0, 255), (255, 0)])
    assert np.abs(colours(inverted) - (255 - colours(photo))).max() <= 2
    np.testing.assert_array_equal(inverted[..., 3], photo[..., 3])
    for channel, index in [("blue", 0), ("green", 1), ("red", 2)]:
        one = qe.curve(photo, [(0, 255), (255, 0)], channel)
        others = [i for i in range(4) if i != index]
        np.testing.assert_array_equal(one[..., others], photo[..., others], err_msg=channel)
        np.testing.assert_array_equal(one[..., index], inverted[..., index], err_msg=channel)
    raised = colours(qe.curve(photo, [(0, 0), (128, 200), (255, 255)]))
    assert (raised >= colours(photo)).all()


@pytest.mark.parametrize("mode", qe.blend_modes(), ids=lambda mode: mode.name)
def test_every_blend_mode_by_either_name(photo, mode):
    layer = sample_image(seed=8)
    by_name = qe.blend(mode.name, photo, layer, 0.7)
    np.testing.assert_array_equal(by_name, qe.blend(mode.function.upper(), photo, layer, 0.7))
    np.testing.assert_array_equal(by_name[..., 3], photo[..., 3])
    if not mode.uses_opacity:
        np.testing.assert_array_equal(by_name, qe.blend(mode.name, photo, layer, 0.2))


def test_blend_formulas(photo):
    layer = sample_image(seed=8)
    a, b = colours(photo), colours(layer)
    np.testing.assert_array_equal(colours(qe.blend("normal", photo, layer)), b)
    np.testing.assert_array_equal(colours(qe.blend("screen", photo, layer)),
                                  np.minimum(a + b - (a * b >> 8), 255))
    np.testing.assert_array_equal(colours(qe.blend("lighten", photo, layer)), np.maximum(a, b))
    np.testing.assert_array_equal(qe.blend("screen", photo, constant(0, 64, 48)), photo)
    assert {"normal", "screen", "softlight", "color", "color-hsb", "half-hardlight"} <= {
        mode.name for mode in qe.blend_modes()}
