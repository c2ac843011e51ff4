"""Type stubs of the compiled module; the docstrings are the module's own."""

from __future__ import annotations

import os
from typing import Literal, Sequence, Union

import numpy as np
import numpy.typing as npt

Image = npt.NDArray[np.uint8]
Order = Literal["bgra", "rgb"]
EffectName = Union[int, str]
BytesLike = Union[bytes, bytearray, memoryview, npt.NDArray[np.uint8]]
Rect = tuple[int, int, int, int]

class Effect:
    """One entry of the effect catalogue (see catalogue())."""

    @property
    def id(self) -> int:
        """The effect id, e.g. 1020."""
    @property
    def name(self) -> str:
        """The library's preset function, e.g. 'StyleFilm'."""
    @property
    def look(self) -> str:
        """A short English name, e.g. 'film'."""
    @property
    def overload(self) -> str:
        """What the effect takes: 'image', '1 material', '2 materials', '3 materials' or
        '2 materials + tables'."""
    @property
    def signature(self) -> str:
        """The C++ Qtzqeffect::effect overload that reaches it."""
    @property
    def materials(self) -> list[tuple[str, str]]:
        """One (use, generated default) pair per material slot, e.g.
        ('screened over the photo', 'stars on black')."""
    @property
    def needs_tables(self) -> bool:
        """True when the effect takes a blend table set."""
    @property
    def table_modes(self) -> list[str]:
        """The blend modes of the default table set's three maps ([] for other effects)."""
    @property
    def serialised(self) -> bool:
        """True when the effect touches process-wide library state (it reseeds
        rand() from the clock, or may use the shared blur): such effects run
        one at a time."""
    @property
    def colour_map(self) -> bool:
        """True when each pixel's result depends on its colour alone, so that lut()
        holds the whole look."""

def apply(
    effect: EffectName,
    image: Image,
    *materials: Image,
    tables: BytesLike | None = None,
    order: Order = "bgra",
    inplace: bool = False,
    strength: int = 100,
) -> Image:
    """Applies a catalogue effect to an image and returns the result.

    effect is an id (1020) or a name: the preset ("StyleFilm"), the preset
    without "Style" ("film") or the look ("old photo"); case, spaces, dashes and
    underscores do not matter. materials are the effect's material images, of
    the image's size and in the same order; slots not given get the generated
    defaults that default_materials() returns. tables is a blend table set
    (bytes-like, at least 196618 bytes) for the effects that take one; None
    gives the generated default. The image's alpha is kept. strength (0..100)
    mixes the original back in: each colour channel becomes
    (original * (100 - strength) + result * strength + 50) // 100, alpha is the
    result's.

    Effects marked serialised in the catalogue (clock-seeded noise, shared blur
    state) run one at a time in the process; the clock-seeded ones (1021,
    1039) reseed the process-wide rand() from the current second, so their
    grain changes from second to second."""

def lut(effect: EffectName, size: int = 33) -> npt.NDArray[np.float32]:
    """The colour lookup table of a look that is a pure colour map (see
    Effect.colour_map), as qtzq lut writes it to a .cube file: float32 of
    shape (size, size, size, 3), indexed [red, green, blue] at the inputs
    i * 255 / (size - 1), holding red, green and blue in 0..1 (interpolated
    linearly between bytes; exact for size 256). ValueError for other looks."""

def catalogue() -> list[Effect]:
    """Every effect of the catalogue, in id order."""

def effect_info(effect: EffectName) -> Effect:
    """The catalogue entry of an effect id or name; ValueError when unknown."""

def default_materials(
    effect: EffectName, width: int, height: int, *, order: Order = "bgra"
) -> list[Image]:
    """The generated material images apply() uses for an effect's slots, at a size:
    the same effect and size always give the same images. [] for effects
    without materials."""

def default_tables(effect: EffectName) -> bytes | None:
    """The generated blend table set apply() uses for an effect (196618 bytes),
    or None for effects without tables."""

class BlendMode:
    """A blend mode blend() takes (see blend_modes())."""

    @property
    def name(self) -> str:
        """The short name, e.g. 'screen'."""
    @property
    def function(self) -> str:
        """The library's single-pixel function, e.g. 'ScreenEx'."""
    @property
    def description(self) -> str:
        """What it does."""
    @property
    def uses_opacity(self) -> bool:
        """False when the mode ignores the opacity."""

def brightness_contrast(
    image: Image,
    brightness: int = 0,
    contrast: int = 0,
    *,
    order: Order = "bgra",
    inplace: bool = False,
) -> Image:
    """Brightness and contrast through one tone table (the library's Light):
    level i becomes brightness + 128 + (i - 128) * (contrast + 100) / 100,
    rounded and clamped; both in -255..255. 0, 0 changes nothing; contrast -100
    flattens the image."""

def saturate(
    image: Image,
    amount: int,
    mode: Literal["hsl", "yuv", "matrix"] = "hsl",
    *,
    order: Order = "bgra",
    inplace: bool = False,
) -> Image:
    """Changes the saturation by amount (-255..255). mode 'hsl' adds amount to the
    byte HSL saturation; 'yuv' scales the chroma by (amount + 100) / 100 (-100
    leaves grey); 'matrix' mixes with the luma (-100 gives grey, positive
    amounts act three times as strongly)."""

def gamma(
    image: Image,
    red: float,
    green: float | None = None,
    blue: float | None = None,
    *,
    order: Order = "bgra",
    inplace: bool = False,
) -> Image:
    """Per-channel gamma, about 255 * (v / 255) ** (1 / gamma), truncated. One value
    for all three channels, or red, green and blue. 1 changes (almost) nothing;
    every gamma must be above 0."""

def gaussian_blur(
    image: Image,
    radius: float,
    radius_y: float | None = None,
    *,
    order: Order = "bgra",
    inplace: bool = False,
) -> Image:
    """Recursive Gaussian blur with a pixel radius (sigma = (radius + 1.3) / 3.329),
    rows then columns; radius_y defaults to radius, 0 leaves that direction
    alone. Uses the library's process-wide blur instance, which is safe to call
    from several threads at once."""

def unsharp(
    image: Image,
    radius: int = 3,
    amount: float = 0.5,
    *,
    order: Order = "bgra",
    inplace: bool = False,
) -> Image:
    """Unsharp masking: v + amount * (v - blurred v), clamped, with the library's
    quantised blur kernel of radius 1..50. Sets every alpha to 255, as the
    library's sharpening does."""

def auto_levels(image: Image, *, order: Order = "bgra", inplace: bool = False) -> Image:
    """Automatic levels: stretches each colour channel so that its darkest and
    brightest 0.6 % land on 0 and 255. Alpha is kept."""

def color_balance(
    image: Image,
    cyan_red: int = 0,
    magenta_green: int = 0,
    yellow_blue: int = 0,
    region: Literal["shadows", "midtones", "highlights"] = "midtones",
    preserve_luminosity: bool = True,
    *,
    order: Order = "bgra",
    inplace: bool = False,
) -> Image:
    """Shifts the colours of one tonal region ('shadows', 'midtones',
    'highlights') along cyan-red, magenta-green and yellow-blue (-100..100,
    positive towards red, green, blue); with preserve_luminosity each pixel keeps
    its lightness."""

def curve(
    image: Image,
    points: Sequence[tuple[int, int]],
    channel: Literal["rgb", "red", "green", "blue"] = "rgb",
    *,
    order: Order = "bgra",
    inplace: bool = False,
) -> Image:
    """Maps the image through the Bezier tone curve that passes through points,
    (input, output) pairs in 0..255 with increasing input. channel is 'rgb' (all
    three alike), 'red', 'green' or 'blue'. Two points give a straight line."""

def blend(
    mode: str,
    image: Image,
    layer: Image,
    opacity: float = 1.0,
    *,
    order: Order = "bgra",
    inplace: bool = False,
) -> Image:
    """Blends layer (same size and order as image) into image, pixel by pixel, with
    a blend mode of blend_modes() at opacity 0..1. Alpha of the image is kept."""

def blend_modes() -> list[BlendMode]:
    """Every blend mode blend() takes."""

class Frame:
    """A decorative frame file: four corner and four edge pieces drawn around a
    photo. Slots: 0 top-left, 1 bottom-left, 2 top-right, 3 bottom-right
    corner, 4 top, 5 bottom, 6 left, 7 right edge."""

    def __init__(self, data: BytesLike, decode: bool = True) -> None:
        """Reads a frame file. With decode, every piece the file carries is decoded as
        PNG or JPEG (ValueError naming the piece when one is not); otherwise hand the
        decoded pieces over with set_piece()."""
    def encoded_piece(self, slot: int) -> bytes | None:
        """The data block the file carries for slot 0..7, or None."""
    def decode_pieces(self) -> None:
        """Decodes every piece the file carries as PNG or JPEG."""
    def set_piece(self, slot: int, pixels: Image, *, order: Order = "bgra") -> None:
        """Gives slot 0..7 its decoded pixels."""
    def composite(self, photo: Image, scale: float = 1.0, *, order: Order = "bgra") -> Image:
        """The framed photo, as a new opaque array: the photo (cropped by what the
        edges do not tile) with the corners and the repeated edges around it. A
        scale other than 1 multiplies the corner insets and keeps them scaled, so
        pass it on one call only."""

class FreeCollage:
    """A free collage layout ("MZYPT" file): up to nine cells scattered
    over a 640 x 896 canvas, placed, sized and tilted at reading time.
    Reading reseeds the process-wide rand() (with a constant, so a file
    always gives the same cells), which disturbs the clock-seeded effects
    if they run at the same moment on another thread."""

    def __init__(self, data: BytesLike) -> None:
        """Reads a layout; ValueError when it is refused."""
    @property
    def count(self) -> int:
        """The number of cells."""
    @property
    def size(self) -> tuple[int, int]:
        """The canvas (width, height)."""
    def rect(self, index: int) -> Rect:
        """Cell index's (x, y, width, height)."""
    def rotation(self, index: int) -> float:
        """Cell index's tilt in degrees."""
    def view_rect(self, index: int, photo_width: int, photo_height: int) -> Rect:
        """Where a photo of the given size is drawn in cell index: scaled down (never
        up) to fit and centred."""

class PuzzleFormat:
    """A template collage's puzzle format ("ZQPTM" file): the collage size
    and up to nine photo cells."""

    def __init__(self, data: BytesLike) -> None:
        """Reads a puzzle format; ValueError when refused."""
    @property
    def count(self) -> int:
        """The number of cells."""
    @property
    def size(self) -> tuple[int, int]:
        """The collage (width, height)."""
    def rect(self, index: int) -> Rect:
        """Cell index's (x, y, width, height)."""

class Bubble:
    """A speech bubble file's text box and text colour."""

    def __init__(self, data: BytesLike) -> None:
        """Reads a bubble file (at least 224 bytes, else ValueError)."""
    @property
    def text_rect(self) -> Rect:
        """The text box (x, y, width, height); sizes may be negative."""
    @property
    def text_color(self) -> tuple[int, int, int, int]:
        """The text colour: the file's three colour bytes in its own order,
        then 255."""

def read_image(path: str | os.PathLike[str], *, order: Order = "bgra") -> Image:
    """Reads a PNG, JPEG, WebP, TIFF, HEIF or AVIF file (recognised by its
    content; grey, palette, RGB or RGBA; the first frame or page of an animated
    or multi-page file) into a (height, width, 4) array: BGRA, or RGBA with
    order='rgb', turned upright by its EXIF orientation. Images without alpha
    come back opaque. OSError naming the file when it cannot be read or decoded."""

def decode_image(data: BytesLike, *, order: Order = "bgra") -> Image:
    """Decodes the bytes of an image file as read_image() does (ValueError
    when they are not one)."""

def write_image(
    path: str | os.PathLike[str],
    image: Image,
    *,
    order: Order = "bgra",
    quality: int = 92,
    lossless: bool = False,
    compression: int = 1,
) -> None:
    """Writes an image as PNG, JPEG, WebP or TIFF, chosen by the extension (.png,
    .jpg, .jpeg, .webp, .tif, .tiff): JPEG and lossy WebP at the given quality
    (1..100; JPEG drops alpha), WebP lossless with lossless=True, PNG and TIFF
    at the deflate level compression (0..9; 1 is fast, 9 smallest). The file is
    written under a temporary name and renamed into place, so a failure leaves
    no partial file. OSError naming the file on failure."""
