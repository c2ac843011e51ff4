"""Run by check_install.cmake: the package and the library it loads both
come from the installed prefix given as the argument."""

import sys
from pathlib import Path

import numpy as np

import qtzqeffect
from qtzqeffect import batch

prefix = Path(sys.argv[1]).resolve()
for module in (qtzqeffect, batch):
    assert prefix in Path(module.__file__).resolve().parents, module.__file__
assert (Path(qtzqeffect.__file__).parent / "_qtzqeffect.pyi").is_file()
assert (Path(qtzqeffect.__file__).parent / "py.typed").is_file()
libraries = {line.split()[-1] for line in open("/proc/self/maps") if "libQtzqeffect" in line}
assert libraries and all(prefix in Path(p).resolve().parents for p in libraries), libraries
assert qtzqeffect.apply("film", np.zeros((2, 2, 4), np.uint8)).shape == (2, 2, 4)
