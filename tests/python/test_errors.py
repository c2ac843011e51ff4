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
    (lambda: qe.apply(1020, PHOTO[..., 0]), ValueError, r"\(height, width, 4\).*not \(48, 64\)"),
    (lambda: qe.apply(1020, PHOTO[..., :3]), ValueError, r"for order 'bgra', not \(48, 64, 3\)"),
    (lambda: qe.apply(1020, PHOTO[:0]), ValueError, "image is empty"),
    (lambda: qe.apply(1020, HUGE), ValueError, "image is too large"),
    (lambda: qe.apply(1020, PHOTO, order="rgba"), ValueError, "order must be 'bgra' or 'rgb'"),
    # effects, materials and tables
    (lambda: qe.apply("nope", PHOTO), ValueError, "unknown effect 'nope'"),
    (lambda: qe.apply(1020.0, PHOTO), TypeError, r"id \(int\) or a name \(str\), not float"),
    (lambda: qe.apply(1020, PHOTO, PHOTO), ValueError, "StyleFilm takes no materials, 1 given"),
    (lambda: qe.apply(1044, PHOTO, PHOTO, PHOTO), ValueError, r"at most 1 material\(s\), 2 given"),
    (lambda: qe.apply(1044, PHOTO, SMALL), ValueError, "material 1 is 32x24 but the image is"),
    (lambda: qe.apply(1020, PHOTO, tables=TABLES), ValueError, "takes no blend table set"),
    (lambda: qe.apply(1031, PHOTO, tables=TABLES[:100]), ValueError,
     "tables hold 100 bytes; a blend table set has 196618"),
    (lambda: qe.apply(1031, PHOTO, tables=np.zeros(196618, np.uint16)), TypeError, "single bytes"),
    (lambda: qe.default_materials(1018, 0, 10), ValueError, "the material size is empty"),
    # primitives
    (lambda: qe.brightness_contrast(PHOTO, 0, 2**40), ValueError, "must lie in -255..255"),
    (lambda: qe.saturate(PHOTO, 10, "hsv"), ValueError, "mode must be 'hsl', 'yuv' or 'matrix'"),
    (lambda: qe.gamma(PHOTO, 1, float("nan")), ValueError, "gamma must be a number above 0"),
    (lambda: qe.unsharp(PHOTO, 51), ValueError, "radius must lie in 1..50"),
    (lambda: qe.curve(PHOTO, [(0, 0), (0, 9)]), ValueError, "increasing x"),
    (lambda: qe.blend("dodge", PHOTO, PHOTO), ValueError, "unknown blend mode 'dodge'"),
    (lambda: qe.blend("screen", PHOTO, SMALL), ValueError, "layer is 32x24 but the image is 64x48"),
    # codecs and readers
    (lambda: qe.decode_image(b"hello"), ValueError, "data: not a PNG, JPEG, WebP, TIFF, HEIF or AVIF file"),
    (lambda: qe.write_image("out.gif", PHOTO), ValueError, "out.gif: unknown image type"),
    (lambda: qe.Frame(b""), ValueError, "the frame file is empty"),
    (lambda: qe.FreeCollage(b"x" * 40), ValueError, "not a free collage layout"),
    (lambda: qe.Bubble(bytes(223)), ValueError, "at least 224 bytes, not 223"),
]


@pytest.mark.parametrize("call, error, message", CASES, ids=[c[2][:40] for c in CASES])
def test_refusals_name_the_problem(call, error, message):
    before = PHOTO.copy()
    with pytest.raises(error, match=message):
        call()
    np.testing.assert_array_equal(PHOTO, before)


def test_file_errors_are_os_errors_naming_the_file(tmp_path):
    corrupt = tmp_path / "corrupt.png"
    corrupt.write_bytes(b"\x89PNG\r\n\x1a\n" + b"garbage")
    for path, message in [(tmp_path / "missing.png", "cannot open file"), (corrupt, "corrupt PNG")]:
        with pytest.raises(OSError, match=f"{path}: {message}"):
            qe.read_image(path)
    with pytest.raises(OSError, match="no-such-folder"):
        qe.write_image(tmp_path / "no-such-folder" / "out.png", PHOTO)
    assert sorted(p.name for p in tmp_path.iterdir()) == ["corrupt.png"]
