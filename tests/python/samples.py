"""Generated test images, layout files and the qtzq tool, for the Python suite."""

from __future__ import annotations

import os
import struct
import subprocess
import time
from collections.abc import Callable
from pathlib import Path
from typing import TypeVar

import numpy as np
import pytest

T = TypeVar("T")


def sample_image(
    width: int = 64, height: int = 48, seed: int = 1, opaque: bool = False
) -> np.ndarray:
    """A BGRA image with gradients, noise and (unless opaque) varied alpha."""
    rng = np.random.default_rng(seed)
    y, x = np.mgrid[0:height, 0:width]
    image = np.empty((height, width, 4), np.uint8)
    image[..., 0] = x * 255 // max(width - 1, 1)
    image[..., 1] = y * 255 // max(height - 1, 1)
    image[..., 2] = rng.integers(0, 256, (height, width))
    image[..., 3] = 255 if opaque else rng.integers(0, 256, (height, width))
    return image


def tool_path() -> str:
    """The qtzq tool of the build under test (QTZQ_TOOL); skips without it."""
    path = os.environ.get("QTZQ_TOOL")
    if not path or not Path(path).is_file():
        pytest.skip("QTZQ_TOOL does not name the qtzq tool")
    return path


def run_tool(*args: str | os.PathLike[str]) -> None:
    """Runs qtzq with the arguments; fails the test with its stderr on error."""
    result = subprocess.run([tool_path(), *map(str, args)], capture_output=True, text=True)
    assert result.returncode == 0, result.stderr


def within_one_second(run: Callable[[], T]) -> T:
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
    records = b"".join(struct.pack("<10i2f4x4x", *cell) for cell in cells)
    return bytes(header) + records


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
