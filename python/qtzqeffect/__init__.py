"""Photo effects on numpy arrays, built on libQtzqeffect.

Images are ``uint8`` arrays of shape ``(height, width, 4)`` in the library's
own BGRA order (byte 0 blue, 1 green, 2 red, 3 alpha), or, with
``order="rgb"``, ``(height, width, 3)`` RGB and ``(height, width, 4)`` RGBA
arrays, converted at the boundary. Every call returns a new array, unless
``inplace=True`` is given with a writeable C-contiguous BGRA array: that
array is then changed and returned (anything else raises rather than
silently working on a copy).

>>> import qtzqeffect as qe
>>> photo = qe.read_image("photo.jpg", order="rgb")
>>> film = qe.apply("film", photo, order="rgb")
>>> qe.write_image("film.png", film, order="rgb")

The GIL is released while the library works, so threads run effects in
parallel. Process-wide state: the effects marked ``serialised`` in
``catalogue()`` run one at a time (the clock-seeded 1021 and 1039 reseed
``rand()`` from the current second); ``gaussian_blur`` uses the library's
shared blur instance (safe from several threads); reading a ``FreeCollage``
reseeds ``rand()``. ``qtzqeffect.batch`` runs effects over many files with
dask.
"""

from ._qtzqeffect import (
    BlendMode,
    Bubble,
    Effect,
    Frame,
    FreeCollage,
    PuzzleFormat,
    apply,
    auto_levels,
    blend,
    blend_modes,
    brightness_contrast,
    catalogue,
    color_balance,
    curve,
    decode_image,
    default_materials,
    default_tables,
    effect_info,
    gamma,
    gaussian_blur,
    lut,
    read_image,
    saturate,
    unsharp,
    write_image,
)

__all__ = [
    "BlendMode",
    "Bubble",
    "Effect",
    "Frame",
    "FreeCollage",
    "PuzzleFormat",
    "apply",
    "auto_levels",
    "blend",
    "blend_modes",
    "brightness_contrast",
    "catalogue",
    "color_balance",
    "curve",
    "decode_image",
    "default_materials",
    "default_tables",
    "effect_info",
    "gamma",
    "gaussian_blur",
    "lut",
    "read_image",
    "saturate",
    "unsharp",
    "write_image",
]
