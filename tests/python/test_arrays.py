"""Arrays across the boundary: both channel orders, file round trips, and
in-place semantics (the caller's array or a refusal, never a silent copy)."""

import numpy as np
import pytest

import qtzqeffect as qe
from samples import sample_image

BGRA_TO_RGBA = [2, 1, 0, 3]


def test_png_round_trip_in_both_orders(tmp_path, photo):
    qe.write_image(tmp_path / "a.png", photo)
    np.testing.assert_array_equal(qe.read_image(tmp_path / "a.png"), photo)
    rgba = qe.read_image(str(tmp_path / "a.png"), order="rgb")
    np.testing.assert_array_equal(rgba, in_order(photo, "rgb"))
    qe.write_image(tmp_path / "b.png", rgba, order="rgb")
    assert (tmp_path / "a.png").read_bytes() == (tmp_path / "b.png").read_bytes()
    decoded = qe.decode_image((tmp_path / "a.png").read_bytes(), order="rgb")
    np.testing.assert_array_equal(decoded, rgba)


def test_rgb_images_come_back_opaque(tmp_path, photo):
    rgb = np.ascontiguousarray(photo[..., [2, 1, 0]])
    qe.write_image(tmp_path / "rgb.png", rgb, order="rgb")
    back = qe.read_image(tmp_path / "rgb.png")
    np.testing.assert_array_equal(back[..., :3], photo[..., :3])
    assert (back[..., 3] == 255).all()


def test_jpeg_keeps_the_picture_but_not_alpha(tmp_path):
    smooth = sample_image(opaque=True)
    smooth[..., 2] = 128
    qe.write_image(tmp_path / "a.jpg", smooth, quality=95)
    back = qe.read_image(tmp_path / "a.jpg")
    assert back.shape == smooth.shape
    assert np.abs(back.astype(int) - smooth).mean() < 3
    assert (back[..., 3] == 255).all()


def in_order(image, order):
    """A BGRA image in the layout of `order`."""
    return image if order == "bgra" else image[..., BGRA_TO_RGBA]


ORDERED_CALLS = [
    lambda image, order: qe.apply("film", image, order=order),
    lambda image, order: qe.apply(1044, image, in_order(sample_image(seed=2), order), order=order),
    lambda image, order: qe.curve(image, [(0, 0), (100, 30), (255, 255)], "red", order=order),
    lambda image, order: qe.gaussian_blur(image, 2.5, order=order),
]


@pytest.mark.parametrize("channels", [3, 4])
@pytest.mark.parametrize("call", ORDERED_CALLS, ids=["apply", "material", "curve", "blur"])
def test_rgb_order_converts_at_the_boundary(photo, channels, call):
    rgb = np.ascontiguousarray(in_order(photo, "rgb")[..., :channels])
    bgra = photo.copy()
    if channels == 3:
        bgra[..., 3] = 255
    ours = call(rgb, "rgb")
    assert ours.shape == rgb.shape and ours.dtype == np.uint8
    np.testing.assert_array_equal(ours, in_order(call(bgra, "bgra"), "rgb")[..., :channels])


def test_strided_views_are_read_when_a_copy_is_made(photo):
    view = photo[::2, ::-3]
    np.testing.assert_array_equal(qe.apply(1020, view), qe.apply(1020, np.ascontiguousarray(view)))
    fortran = np.asfortranarray(photo)
    np.testing.assert_array_equal(qe.saturate(fortran, 40), qe.saturate(photo, 40))


def test_a_new_array_leaves_the_input_alone(photo):
    before = photo.copy()
    out = qe.apply(1020, photo)
    assert out is not photo and not np.shares_memory(out, photo)
    np.testing.assert_array_equal(photo, before)
    assert not np.array_equal(out, before)


@pytest.mark.parametrize(
    "call",
    [
        lambda image, **kw: qe.apply(1020, image, **kw),
        lambda image, **kw: qe.apply(1041, image, **kw),
        lambda image, **kw: qe.gamma(image, 1.8, **kw),
        lambda image, **kw: qe.blend("screen", image, sample_image(seed=5), 0.5, **kw),
        lambda image, **kw: qe.unsharp(image, 2, 1.5, **kw),
    ],
    ids=["apply", "apply-materials", "gamma", "blend", "unsharp"],
)
def test_in_place_changes_and_returns_the_callers_array(photo, call):
    expected = call(photo)
    out = call(photo, inplace=True)
    assert out is photo
    np.testing.assert_array_equal(photo, expected)


def test_in_place_on_a_contiguous_block_changes_only_that_block():
    canvas = sample_image(64, 48)
    before = canvas.copy()
    block = canvas[10:20]
    qe.apply(1020, block, inplace=True)
    np.testing.assert_array_equal(canvas[10:20], qe.apply(1020, before[10:20]))
    np.testing.assert_array_equal(canvas[:10], before[:10])
    np.testing.assert_array_equal(canvas[20:], before[20:])


@pytest.mark.parametrize(
    "make, message",
    [
        (lambda p: p[:, ::2], "C-contiguous"),
        (lambda p: np.asfortranarray(p), "C-contiguous"),
        (lambda p: p[:, ::-1], "C-contiguous"),
        (lambda p: np.frombuffer(p.tobytes(), np.uint8).reshape(p.shape), "read-only"),
    ],
    ids=["strided", "fortran", "reversed", "read-only"],
)
def test_in_place_refuses_arrays_it_cannot_change_directly(photo, make, message):
    image = make(photo)
    before = image.copy()
    with pytest.raises(ValueError, match=message):
        qe.apply(1020, image, inplace=True)
    with pytest.raises(ValueError, match=message):
        qe.brightness_contrast(image, 10, inplace=True)
    np.testing.assert_array_equal(image, before)


def test_in_place_needs_the_librarys_own_order(photo):
    rgba = in_order(photo, "rgb").copy()
    with pytest.raises(ValueError, match="order='bgra'"):
        qe.apply(1020, rgba, order="rgb", inplace=True)
    with pytest.raises(ValueError, match="order='bgra'"):
        qe.auto_levels(rgba[..., :3].copy(), order="rgb", inplace=True)
