"""Arrays across the boundary: both channel orders, file round trips, and
in-place semantics (the caller's array or a refusal, never a silent copy)."""

import functools

import numpy as np
import pytest

import qtzqeffect as qe
from samples import sample_image

PHOTO = sample_image()


def in_order(image, order):
    """A BGRA image in the layout of `order`."""
    return image if order == "bgra" else image[..., [2, 1, 0, 3]]


def test_png_round_trip_in_both_orders_and_jpeg_keeps_the_picture(tmp_path):
    qe.write_image(tmp_path / "a.png", PHOTO)
    np.testing.assert_array_equal(qe.read_image(tmp_path / "a.png"), PHOTO)
    rgba = qe.read_image(str(tmp_path / "a.png"), order="rgb")
    np.testing.assert_array_equal(rgba, in_order(PHOTO, "rgb"))
    decoded = qe.decode_image((tmp_path / "a.png").read_bytes(), order="rgb")
    np.testing.assert_array_equal(decoded, rgba)
    qe.write_image(tmp_path / "b.png", rgba, order="rgb")
    assert (tmp_path / "a.png").read_bytes() == (tmp_path / "b.png").read_bytes()
    smooth = sample_image(opaque=True)
    smooth[..., 2] = 128  # JPEG keeps the picture but not alpha
    qe.write_image(tmp_path / "a.jpg", smooth, quality=95)
    back = qe.read_image(tmp_path / "a.jpg")
    assert back.shape == smooth.shape and (back[..., 3] == 255).all()
    assert np.abs(back.astype(int) - smooth).mean() < 3


def opaque_material(order, channels):
    """An opaque material in the photo's layout (RGB when the photo has no alpha)."""
    return np.ascontiguousarray(in_order(sample_image(seed=2, opaque=True), order)[..., :channels])


@pytest.mark.parametrize("channels", [3, 4])
@pytest.mark.parametrize("call", [
    # The reversal look reads the material's alpha: an RGB material is opaque.
    lambda image, order: qe.apply(1047, image, opaque_material(order, image.shape[-1]),
                                  order=order),
    lambda image, order: qe.curve(image, [(0, 0), (100, 30), (255, 255)], "red", order=order),
], ids=["material", "curve"])
def test_rgb_order_converts_at_the_boundary(channels, call):
    rgb = np.ascontiguousarray(in_order(PHOTO, "rgb")[..., :channels])
    bgra = sample_image(opaque=channels == 3)  # PHOTO, opaque when the alpha is left out
    ours = call(rgb, "rgb")
    assert ours.shape == rgb.shape and ours.dtype == np.uint8
    np.testing.assert_array_equal(ours, in_order(call(bgra, "bgra"), "rgb")[..., :channels])


def test_new_arrays_leave_the_input_alone_and_views_are_read():
    before = PHOTO.copy()
    out = qe.apply(1020, PHOTO)
    assert not np.shares_memory(out, PHOTO) and not np.array_equal(out, before)
    np.testing.assert_array_equal(PHOTO, before)
    view = PHOTO[::2, ::-3]
    np.testing.assert_array_equal(qe.apply(1020, view), qe.apply(1020, np.ascontiguousarray(view)))


@pytest.mark.parametrize("call", [
    lambda image, **kw: qe.apply(1041, image, **kw),
    lambda image, **kw: qe.blend("screen", image, sample_image(seed=5), 0.5, **kw),
    lambda image, **kw: qe.unsharp(image, 2, 1.5, **kw),
], ids=["apply-materials", "blend", "unsharp"])
def test_in_place_changes_and_returns_the_callers_array(call):
    canvas = sample_image(64, 96)
    before = canvas.copy()
    block = canvas[10:58]  # a contiguous block: only it changes
    assert call(block, inplace=True) is block
    np.testing.assert_array_equal(block, call(before[10:58]))
    outside = np.r_[0:10, 58:96]
    np.testing.assert_array_equal(canvas[outside], before[outside])


@pytest.mark.parametrize("make, message", [
    (lambda p: p[:, ::2], "C-contiguous"),
    (lambda p: np.asfortranarray(p), "C-contiguous"),
    (lambda p: np.frombuffer(p.tobytes(), np.uint8).reshape(p.shape), "read-only"),
    (lambda p: in_order(p, "rgb").copy(), "order='bgra'"),
], ids=["strided", "fortran", "read-only", "rgb"])
def test_in_place_refuses_arrays_it_cannot_change_directly(make, message):
    image = make(PHOTO)
    before = image.copy()
    for function in (functools.partial(qe.apply, 1020), qe.brightness_contrast):
        with pytest.raises(ValueError, match=message):
            function(image, inplace=True, order="rgb" if "order" in message else "bgra")
    np.testing.assert_array_equal(image, before)
