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
        size = (6, 6) if slot < 4 else (4, 5)
        path = tmp_path / f"{name}.png"
        qe.write_image(path, sample_image(*size, seed=20 + slot))
        pieces.append(path)
    run_tool("make-frame", *pieces, "--insets", "3,2", "-o", tmp_path / "frame.bin")
    return tmp_path / "frame.bin"


@pytest.mark.parametrize("scale", [1.0, 2.0])
def test_frame_composite_equals_the_tool(tmp_path, frame_file, scale):
    photo = sample_image(40, 30, seed=7)
    qe.write_image(tmp_path / "photo.png", photo)
    run_tool("frame", frame_file, tmp_path / "photo.png", "--scale", scale,
             "-o", tmp_path / "out.png")
    framed = qe.Frame(frame_file.read_bytes()).composite(photo, scale)
    np.testing.assert_array_equal(framed, qe.read_image(tmp_path / "out.png"))
    assert (framed[..., 3] == 255).all()
    rgba = qe.Frame(frame_file.read_bytes()).composite(photo[..., [2, 1, 0, 3]], scale, order="rgb")
    np.testing.assert_array_equal(rgba, framed[..., [2, 1, 0, 3]])


def test_frame_pieces_can_be_decoded_by_the_caller(tmp_path, frame_file):
    data = frame_file.read_bytes()
    photo = sample_image(40, 30, seed=7)
    frame = qe.Frame(data, decode=False)
    for slot, name in enumerate(SLOTS):
        assert frame.encoded_piece(slot) == (tmp_path / f"{name}.png").read_bytes()
        frame.set_piece(slot, qe.decode_image(frame.encoded_piece(slot)))
    np.testing.assert_array_equal(frame.composite(photo), qe.Frame(data).composite(photo))
    with pytest.raises(IndexError, match="slot 8 out of range 0..7"):
        frame.encoded_piece(8)


def test_frame_pieces_that_are_no_images_are_named(frame_file):
    data = bytearray(frame_file.read_bytes())
    start = data.index(b"\x89PNG")  # the first piece's data: the top-left corner
    data[start:start + 4] = b"JUNK"
    with pytest.raises(ValueError, match="top-left piece: not a PNG or JPEG file"):
        qe.Frame(bytes(data))
    assert qe.Frame(bytes(data), decode=False).encoded_piece(0)[:4] == b"JUNK"


def test_free_collage_lays_out_cells_reproducibly():
    fixed = (100, 50, 400, 300, 5, 5, -7, -7, 12, 12, 1.0, 1.0)
    ranged = (100, 200, 300, 201, -10, 10, 3, 9, -30, 30, 0.5, 1.5)
    data = free_collage_file([fixed, ranged])
    collage = qe.FreeCollage(data)
    assert (collage.count, collage.size) == (2, (640, 896))
    assert collage.rect(0) == (105, 43, 400, 300)
    assert collage.rotation(0) == 12.0
    again = qe.FreeCollage(bytearray(data))
    assert again.rect(1) == collage.rect(1) and again.rotation(1) == collage.rotation(1)
    x, y, width, height = collage.rect(1)
    assert 150 <= width <= 450 and -30 <= collage.rotation(1) <= 30
    # An 800 x 600 photo is halved to fit the 400 x 300 cell and centred.
    assert collage.view_rect(0, 800, 600) == (105, 43, 400, 300)
    assert collage.view_rect(0, 100, 100) == (255, 143, 100, 100)
    with pytest.raises(IndexError):
        collage.rect(2)
    with pytest.raises(ValueError, match="more than 9 cells"):
        qe.FreeCollage(free_collage_file([fixed] * 10))
    with pytest.raises(ValueError, match="wrong magic"):
        qe.FreeCollage(free_collage_file([fixed], magic=b"MZYPU"))


def test_puzzle_format_reads_size_and_cells():
    cells = [(0, 0, 320, 240), (320, 0, 320, 240), (0, 240, 640, 480)]
    puzzle = qe.PuzzleFormat(puzzle_format_file((640, 720), cells))
    assert (puzzle.count, puzzle.size) == (3, (640, 720))
    assert [puzzle.rect(i) for i in range(3)] == cells
    with pytest.raises(IndexError):
        puzzle.rect(3)
    with pytest.raises(ValueError, match="too short"):
        qe.PuzzleFormat(puzzle_format_file((640, 720), cells)[:-1])


def test_bubble_reads_text_box_and_colour():
    bubble = qe.Bubble(bubble_file((10, 20, 110, 70), (1, 2, 3, 4)))
    assert bubble.text_rect == (10, 20, 100, 50)
    assert bubble.text_color == (1, 2, 3, 255)
    assert qe.Bubble(bubble_file((50, 50, 40, 30), (0, 0, 0, 0))).text_rect == (50, 50, -10, -20)
