"""Every refusal: the exception type, a message naming the problem, and no
change to the caller's arrays or files."""

import numpy as np
import pytest

import qtzqeffect as qe
from samples import sample_image

PHOTO = sample_image()
SMALL = sample_image(32, 24)
HUGE = np.broadcast_to(np.zeros((1, 1, 4), np.uint8), (30000, 30000, 4))  # no memory behind it
TABLES = qe.default_tables(1031)

CASES = [
    # arrays
    (lambda: qe.apply(1020, PHOTO.tolist()), TypeError, "image must be a numpy array, not list"),
    (lambda: qe.apply(1020, PHOTO.astype(np.float32)), TypeError, "dtype uint8, not float32"),
    (lambda: qe.apply(1020, PHOTO.view(np.int8)), TypeError, "dtype uint8, not int8"),
    (lambda: qe.apply(1020, PHOTO[..., 0]), ValueError,
     r"shape \(height, width, 4\).*not \(48, 64\)"),
    (lambda: qe.apply(1020, PHOTO[..., :3]), ValueError, r"for order 'bgra', not \(48, 64, 3\)"),
    (lambda: qe.apply(1020, PHOTO[..., :2], order="rgb"), ValueError, r"3 or 4\) for order 'rgb'"),
    (lambda: qe.apply(1020, PHOTO[:0]), ValueError, "image is empty"),
    (lambda: qe.apply(1020, HUGE), ValueError, "image is too large"),
    (lambda: qe.apply(1020, PHOTO, order="rgba"), ValueError, "order must be 'bgra' or 'rgb'"),
    # effects, materials and tables
    (lambda: qe.apply("nope", PHOTO), ValueError, "unknown effect 'nope'"),
    (lambda: qe.apply(1024, PHOTO), ValueError, "unknown effect 1024"),
    (lambda: qe.apply(-1020, PHOTO), ValueError, "unknown effect -1020"),
    (lambda: qe.apply(1020.0, PHOTO), TypeError, "id \\(int\\) or a name \\(str\\), not float"),
    (lambda: qe.apply(True, PHOTO), TypeError, "not bool"),
    (lambda: qe.apply(1020, PHOTO, PHOTO), ValueError,
     "1020 StyleFilm takes no materials, 1 given"),
    (lambda: qe.apply(1044, PHOTO, PHOTO, PHOTO), ValueError, r"at most 1 material\(s\), 2 given"),
    (lambda: qe.apply(1044, PHOTO, SMALL), ValueError,
     "material 1 is 32x24 but the image is 64x48"),
    (lambda: qe.apply(1018, PHOTO, PHOTO, PHOTO[..., :3]), ValueError,
     "material 2 must have shape"),
    (lambda: qe.apply(1020, PHOTO, tables=TABLES), ValueError,
     "StyleFilm takes no blend table set"),
    (lambda: qe.apply(1031, PHOTO, tables=TABLES[:100]), ValueError,
     "tables hold 100 bytes; a blend table set has 196618"),
    (lambda: qe.apply(1031, PHOTO, tables=5), TypeError, "tables must be bytes-like"),
    (lambda: qe.apply(1031, PHOTO, tables=np.zeros(196618, np.uint16)), TypeError, "single bytes"),
    (lambda: qe.effect_info("nope"), ValueError, "unknown effect"),
    (lambda: qe.default_materials(1018, 0, 10), ValueError, "the material size is empty"),
    # primitives
    (lambda: qe.brightness_contrast(PHOTO, 256), ValueError, "must lie in -255..255"),
    (lambda: qe.brightness_contrast(PHOTO, 0, 2**40), ValueError, "must lie in -255..255"),
    (lambda: qe.saturate(PHOTO, 10, "hsv"), ValueError, "mode must be 'hsl', 'yuv' or 'matrix'"),
    (lambda: qe.saturate(PHOTO, 300), ValueError, "amount must lie in -255..255"),
    (lambda: qe.gamma(PHOTO, 0), ValueError, "gamma must be a number above 0"),
    (lambda: qe.gamma(PHOTO, 1, float("nan")), ValueError, "gamma must be a number above 0"),
    (lambda: qe.gaussian_blur(PHOTO, -1), ValueError, "blur radii must lie in 0..255"),
    (lambda: qe.gaussian_blur(PHOTO, 2, float("inf")), ValueError, "blur radii"),
    (lambda: qe.unsharp(PHOTO, 0), ValueError, "radius must lie in 1..50"),
    (lambda: qe.unsharp(PHOTO, 51), ValueError, "radius must lie in 1..50"),
    (lambda: qe.unsharp(PHOTO, 3, -0.5), ValueError, "amount must lie in 0..100"),
    (lambda: qe.color_balance(PHOTO, region="middle"), ValueError, "region must be"),
    (lambda: qe.color_balance(PHOTO, 101), ValueError, "shifts must lie in -100..100"),
    (lambda: qe.curve(PHOTO, []), ValueError, "at least one point"),
    (lambda: qe.curve(PHOTO, [(0, 0), (0, 9)]), ValueError, "increasing x"),
    (lambda: qe.curve(PHOTO, [(0, 0), (256, 9)]), ValueError, r"lie in 0..255, not \(256, 9\)"),
    (lambda: qe.curve(PHOTO, [(0, 0)], "alpha"), ValueError, "channel must be"),
    (lambda: qe.curve(PHOTO, [(0, "a")]), TypeError, "incompatible function arguments"),
    (lambda: qe.blend("dodge", PHOTO, PHOTO), ValueError, "unknown blend mode 'dodge'"),
    (lambda: qe.blend("screen", PHOTO, PHOTO, 1.5), ValueError, "opacity must lie in 0..1"),
    (lambda: qe.blend("screen", PHOTO, SMALL), ValueError, "layer is 32x24 but the image is 64x48"),
    # codecs
    (lambda: qe.decode_image(b"hello"), ValueError, "data: not a PNG or JPEG file"),
    (lambda: qe.decode_image("text"), TypeError, "data must be bytes-like"),
    (lambda: qe.write_image("out.gif", PHOTO), ValueError, "out.gif: unknown image type"),
    (lambda: qe.write_image("out.png", PHOTO, quality=0), ValueError, "quality must lie in 1..100"),
    # readers
    (lambda: qe.Frame(b""), ValueError, "the frame file is empty"),
    (lambda: qe.FreeCollage(b"x" * 40), ValueError, "not a free collage layout"),
    (lambda: qe.PuzzleFormat(b"x" * 60), ValueError, "not a puzzle format"),
    (lambda: qe.Bubble(bytes(223)), ValueError, "at least 224 bytes, not 223"),
    (lambda: qe.Bubble(None), TypeError, "data must be bytes-like .*, not NoneType"),
]


@pytest.mark.parametrize("call, error, message", CASES, ids=[c[2][:40] for c in CASES])
def test_refusals_name_the_problem(call, error, message):
    before = PHOTO.copy()
    with pytest.raises(error, match=message):
        call()
    np.testing.assert_array_equal(PHOTO, before)


def test_file_errors_are_os_errors_naming_the_file(tmp_path):
    missing = tmp_path / "missing.png"
    with pytest.raises(OSError, match=f"{missing}: cannot open file"):
        qe.read_image(missing)
    corrupt = tmp_path / "corrupt.png"
    corrupt.write_bytes(b"\x89PNG\r\n\x1a\n" + b"garbage")
    with pytest.raises(OSError, match=f"{corrupt}: corrupt PNG"):
        qe.read_image(corrupt)
    target = tmp_path / "no-such-folder" / "out.png"
    with pytest.raises(OSError, match="no-such-folder"):
        qe.write_image(target, PHOTO)
    assert sorted(p.name for p in tmp_path.iterdir()) == ["corrupt.png"]
