"""Effects over many image files with dask.

:func:`apply_to_files` reads every input with the same PNG/JPEG codecs as
the ``qtzq`` tool, runs an effect or a short chain of steps on it and writes
the result into a folder, one dask task per partition of files. It runs on
dask's local threaded scheduler by default (the library releases the GIL,
so threads use every core) and, unchanged, on a ``dask.distributed`` cluster
when a ``Client`` is passed; the workers then read and write the files
themselves, so the paths must mean the same on every worker.

>>> from qtzqeffect import batch
>>> results = batch.apply_to_files("film", "photos/", "out/")
>>> [r.input for r in results if not r.ok]
[]
"""

from __future__ import annotations

import functools
import os
import sys
from collections.abc import Callable, Iterable, Sequence
from dataclasses import dataclass
from pathlib import Path
from typing import Any, Union

import dask
import dask.bag
import numpy as np
from dask.callbacks import Callback

from . import _qtzqeffect, apply, effect_info, read_image, write_image

#: A step of a chain: an effect id or name (run by :func:`qtzqeffect.apply`
#: with its generated default materials and tables), or a function taking a
#: BGRA image array and returning one, such as ``qtzqeffect.auto_levels`` or
#: ``functools.partial(qtzqeffect.gamma, red=1.2)``. On a cluster, functions
#: travel to the workers by pickle: qtzqeffect's own functions and partials
#: of them are sent by name, other functions must be picklable (defined at
#: module level in a module the workers can import, or in ``__main__``).
Step = Union[int, str, Callable[[np.ndarray], np.ndarray]]

#: Told (files done, files in all) as files finish.
ProgressCallback = Callable[[int, int], None]

WRITABLE_SUFFIXES = (".png", ".jpg", ".jpeg", ".webp", ".tif", ".tiff")
IMAGE_SUFFIXES = WRITABLE_SUFFIXES + (".heic", ".heif", ".avif")


@dataclass(frozen=True)
class FileResult:
    """What became of one input file."""

    input: str
    output: str
    #: Why the file failed (it could not be read, decoded or written, or a
    #: step refused it), or None when the output was written.
    error: str | None = None

    @property
    def ok(self) -> bool:
        """True when the output was written."""
        return self.error is None


def apply_to_files(
    steps: Step | Sequence[Step],
    inputs: str | os.PathLike[str] | Iterable[str | os.PathLike[str]],
    out_dir: str | os.PathLike[str],
    *,
    output_format: str | None = None,
    quality: int = 92,
    client: Any = None,
    scheduler: str = "threads",
    partitions: int | None = None,
    progress: bool | ProgressCallback = True,
) -> list[FileResult]:
    """Runs ``steps`` on every input file and writes the results to ``out_dir``.

    ``steps`` is one step or a sequence of them, applied in order (see
    :data:`Step`). ``inputs`` is a folder (its image files, sorted) or
    an iterable of image paths. Each result is named after its input, with
    the input's extension or ``output_format`` ("png" or "jpg"); ``out_dir``
    is created if needed. JPEG results are written at ``quality``.

    With ``client`` (a ``dask.distributed.Client``) the work runs on its
    cluster; otherwise on dask's local ``scheduler`` ("threads",
    "processes" or "synchronous"). ``partitions`` is the number of dask
    partitions (default: dask's choice, at most 100). ``progress`` True
    reports on stderr, False is silent, a function is told (done, total)
    as files finish.

    Returns one :class:`FileResult` per input, in input order. A file that
    cannot be read, decoded or written, or that a step refuses with
    ValueError or OSError, fails alone; other exceptions from steps stop
    the run. Unknown effects, a bad ``output_format`` and two inputs that
    would share an output raise ValueError before any work starts.
    """
    chain = _checked_steps(steps)
    suffix = _output_suffix(output_format)
    if not 1 <= quality <= 100:
        raise ValueError("quality must lie in 1..100")
    jobs = _plan(_input_paths(inputs), Path(out_dir), suffix)
    if not jobs:
        return []
    Path(out_dir).mkdir(parents=True, exist_ok=True)
    report = _Progress(len(jobs), progress)
    bag = dask.bag.from_sequence(jobs, npartitions=partitions)
    parts = bag.map(_process, chain, quality).to_delayed()
    if client is not None:
        results = _run_on_cluster(client, parts, report)
    else:
        results = _run_locally(parts, scheduler, report)
    report.finish()
    return [result for part in results for result in part]


def _checked_steps(steps: Step | Sequence[Step]) -> list[Step]:
    chain = [steps] if isinstance(steps, (int, str)) or callable(steps) else list(steps)
    if not chain:
        raise ValueError("no steps given")
    for step in chain:
        if not callable(step):
            effect_info(step)  # ValueError / TypeError for what apply() would refuse
    return [_picklable(step) for step in chain]


def _picklable(step: Step) -> Step:
    if isinstance(step, functools.partial) and _is_compiled(step.func):
        return _CompiledCall(step.func.__name__, step.args, step.keywords)
    if _is_compiled(step):
        return _CompiledCall(step.__name__, (), {})
    return step


def _is_compiled(function: object) -> bool:
    return getattr(function, "__module__", None) == _qtzqeffect.__name__


class _CompiledCall:
    """A call of a function of the compiled module, kept by name: the
    compiled functions themselves cannot be pickled. Calls it as
    ``functools.partial(function, *args, **kwargs)(image)`` would."""

    def __init__(self, name: str, args: tuple[Any, ...], kwargs: dict[str, Any]) -> None:
        self.name = name
        self.args = args
        self.kwargs = kwargs

    def __call__(self, image: np.ndarray) -> np.ndarray:
        return getattr(_qtzqeffect, self.name)(*self.args, image, **self.kwargs)


def _output_suffix(output_format: str | None) -> str | None:
    if output_format is None:
        return None
    if "." + output_format not in WRITABLE_SUFFIXES:
        raise ValueError(f"output_format must be 'png', 'jpg', 'webp' or 'tif', not {output_format!r}")
    return "." + output_format


def _input_paths(inputs: str | os.PathLike[str] | Iterable[str | os.PathLike[str]]) -> list[Path]:
    if isinstance(inputs, (str, os.PathLike)):
        folder = Path(inputs)
        if not folder.is_dir():
            return [folder]
        return sorted(p for p in folder.iterdir() if p.suffix.lower() in IMAGE_SUFFIXES)
    return [Path(p) for p in inputs]


def _plan(paths: list[Path], out_dir: Path, suffix: str | None) -> list[tuple[str, str]]:
    jobs: list[tuple[str, str]] = []
    taken: dict[Path, Path] = {}
    for path in paths:
        ending = suffix or (path.suffix if path.suffix.lower() in WRITABLE_SUFFIXES else ".png")
        output = out_dir / (path.stem + ending)
        if output in taken:
            raise ValueError(f"{taken[output]} and {path} would both be written to {output}")
        taken[output] = path
        jobs.append((str(path), str(output)))
    return jobs


def _process(job: tuple[str, str], steps: Sequence[Step], quality: int) -> FileResult:
    source, target = job
    try:
        image = read_image(source)
        for step in steps:
            image = step(image) if callable(step) else apply(step, image)
        write_image(target, image, quality=quality)
    except (OSError, ValueError) as error:
        return FileResult(source, target, str(error))
    return FileResult(source, target)


def _run_locally(parts: list[Any], scheduler: str, report: _Progress) -> list[list[FileResult]]:
    part_keys = {part.key for part in parts}

    def finished(key: Any, result: Any, *_: Any) -> None:
        if key in part_keys:
            report.advance(len(result))

    # Unoptimised, the graph keeps the partitions' keys for the callback.
    with Callback(posttask=finished):
        return list(dask.compute(*parts, scheduler=scheduler, optimize_graph=False))


def _run_on_cluster(client: Any, parts: list[Any], report: _Progress) -> list[list[FileResult]]:
    from distributed import as_completed

    futures = client.compute(parts)
    for future in as_completed(futures):
        report.advance(len(future.result()))
    return client.gather(futures)


class _Progress:
    """Counts finished files and reports them on stderr or to a callback."""

    def __init__(self, total: int, progress: bool | ProgressCallback) -> None:
        self.total = total
        self.done = 0
        self.callback = progress if callable(progress) else None
        self.printing = progress is True

    def advance(self, files: int) -> None:
        self.done += files
        if self.callback is not None:
            self.callback(self.done, self.total)
        elif self.printing:
            print(f"\rqtzqeffect.batch: {self.done}/{self.total} files", end="", file=sys.stderr)

    def finish(self) -> None:
        if self.printing:
            print(file=sys.stderr)
