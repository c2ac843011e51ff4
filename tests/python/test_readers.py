"""The file readers taking bytes: frames (against the qtzq tool), collage
layouts, puzzle formats and speech bubbles."""

import numpy as np
import pytest

import qtzqeffect as qe
from samples import bubble_file, free_collage_file, puzzle_format_file, run_tool, sample_image

SLOTS = ["top-left", "bottom-left", "top-right", "bottom-right", "top", "bottom", "left", "right"]


@pytest.fixture
def frame_file(tmp_path):
    """A frame file made by `qtzq make-frame` from eight generated PNG pieces."""
    pieces = []
    for slot, name in enumerate(SLOTS):
        pieces.append(tmp_path / f"{name}.png")
        qe.write_image(pieces[-1], sample_image(*((6, 6) if slot < 4 else (4, 5)), seed=20 + slot))
    run_tool("make-frame", *pieces, "--insets", "3,2", "-o", tmp_path / "frame.bin")
    return tmp_path / "frame.bin"


@pytest.mark.parametrize("scale", [1.0, 2.0])
def test_frame_composite_equals_the_tool(tmp_path, frame_file, scale):
    photo = sample_image(40, 30, seed=7)
    qe.write_image(tmp_path / "photo.png", photo)
    out = tmp_path / "out.png"
    run_tool("frame", frame_file, tmp_path / "photo.png", "--scale", scale, "-o", out)
    framed = qe.Frame(frame_file.read_bytes()).composite(photo, scale)
    np.testing.assert_array_equal(framed, qe.read_image(out))


def test_frame_pieces_are_the_files_and_bad_ones_are_named(tmp_path, frame_file):
    data = bytearray(frame_file.read_bytes())
    frame = qe.Frame(bytes(data), decode=False)
    for slot, name in enumerate(SLOTS):
        assert frame.encoded_piece(slot) == (tmp_path / f"{name}.png").read_bytes()
    start = data.index(b"\x89PNG")  # the first piece's data: the top-left corner
    data[start:start + 4] = b"JUNK"
    with pytest.raises(ValueError, match="top-left piece: not a PNG, JPEG, WebP, TIFF, HEIF or AVIF file"):
        qe.Frame(bytes(data))


def test_free_collage_lays_out_cells_reproducibly():
    fixed = (100, 50, 400, 300, 5, 5, -7, -7, 12, 12, 1.0, 1.0)
    ranged = (100, 200, 300, 201, -10, 10, 3, 9, -30, 30, 0.5, 1.5)
    collage, again = (qe.FreeCollage(free_collage_file([fixed, ranged])) for _ in range(2))
    assert (collage.count, collage.size) == (2, (640, 896))
    assert collage.rect(0) == (105, 43, 400, 300) and collage.rotation(0) == 12.0
    assert again.rect(1) == collage.rect(1) and again.rotation(1) == collage.rotation(1)
    assert 150 <= collage.rect(1)[2] <= 450 and -30 <= collage.rotation(1) <= 30
    # An 800 x 600 photo is halved to fit the 400 x 300 cell and centred.
    assert collage.view_rect(0, 800, 600) == (105, 43, 400, 300)
    with pytest.raises(ValueError, match="more than 9 cells"):
        qe.FreeCollage(free_collage_file([fixed] * 10))


def test_puzzle_format_and_bubble_read_their_fields():
    cells = [(0, 0, 320, 240), (320, 0, 320, 240), (0, 240, 640, 480)]
    puzzle = qe.PuzzleFormat(puzzle_format_file((640, 720), cells))
    assert (puzzle.count, puzzle.size) == (3, (640, 720))
    assert [puzzle.rect(i) for i in range(3)] == cells
    bubble = qe.Bubble(bubble_file((10, 20, 110, 70), (1, 2, 3, 4)))
    assert (bubble.text_rect, bubble.text_color) == ((10, 20, 100, 50), (1, 2, 3, 255))
