"""Generated test images, layout files and the qtzq tool, for the Python suite."""

import os
import struct
import subprocess
import time
from pathlib import Path

import numpy as np
import pytest


def sample_image(width: int = 64, height: int = 48, seed: int = 1, opaque: bool = False):
    """A BGRA image with gradients, noise and (unless opaque) varied alpha."""
    y, x = np.mgrid[0:height, 0:width]
    noise, alpha = np.random.default_rng(seed).integers(0, 256, (2, height, width))
    gradients = [x * 255 // max(width - 1, 1), y * 255 // max(height - 1, 1)]
    return np.stack([*gradients, noise, alpha | opaque * 255], axis=-1).astype(np.uint8)


def run_tool(*args: str | os.PathLike[str] | int | float) -> None:
    """Runs qtzq (QTZQ_TOOL; the test skips without it) and fails the test with
    its stderr on error. The arguments are turned into strings."""
    tool = os.environ.get("QTZQ_TOOL")
    if not tool or not Path(tool).is_file():
        pytest.skip("QTZQ_TOOL does not name the qtzq tool")
    result = subprocess.run([tool, *map(str, args)], capture_output=True, text=True)
    assert result.returncode == 0, result.stderr


def within_one_second(run):
    """Runs `run` until it starts and ends within the same clock second, so
    that everything it runs (the tool included) seeds rand() alike."""
    for _ in range(10):
        second = int(time.time())
        result = run()
        if int(time.time()) == second:
            return result
    pytest.fail("the clock ticked during every attempt")


def free_collage_file(cells: list[tuple[int, ...]], magic: bytes = b"MZYPT") -> bytes:
    """A "MZYPT" layout: per cell x, y, width, height, the least and greatest
    shift x, shift y and rotation (ints), then the least and greatest scale."""
    header = bytearray(56)
    header[12:17] = magic
    header[36:40] = struct.pack("<i", len(cells))
    return bytes(header) + b"".join(struct.pack("<10i2f4x4x", *cell) for cell in cells)


def puzzle_format_file(size: tuple[int, int], cells: list[tuple[int, int, int, int]]) -> bytes:
    """A "ZQPTM" puzzle format with a result size and x, y, width, height cells."""
    header = bytearray(56)
    header[12:17] = b"ZQPTM"
    header[36:48] = struct.pack("<3i", len(cells), *size)
    return bytes(header) + b"".join(struct.pack("<4i", *cell) for cell in cells)


def bubble_file(box: tuple[int, int, int, int], color: tuple[int, int, int, int]) -> bytes:
    """A speech bubble file: text box corners left, top, right, bottom and colour."""
    data = bytearray(224)
    data[187:195] = struct.pack("<2i", *box[:2])
    data[211:219] = struct.pack("<2i", *box[2:])
    data[220:224] = bytes(color)
    return bytes(data)
