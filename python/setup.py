"""Builds the extension module and the library with the project's CMake
build and puts both in the package, the library beside the module, which
finds it through its $ORIGIN run path: the wheel needs no installed
libQtzqeffect. The version is the CMake project's (scripts/version.sh)."""

import os
import shutil
import subprocess
import sys
from pathlib import Path

from setuptools import Extension, setup
from setuptools.command.build_ext import build_ext

SOURCE = Path(__file__).resolve().parent.parent


def project_version() -> str:
    script = SOURCE / "scripts" / "version.sh"
    return subprocess.run([script], check=True, capture_output=True, text=True).stdout.strip()


class CMakeBuild(build_ext):
    """Configures, builds and installs the module's CMake targets into a
    staging prefix whose library folder is the package folder, then copies
    the module and the library (under its soname) into the package."""

    def build_extension(self, ext: Extension) -> None:
        build_dir = Path(self.build_temp).resolve() / "cmake"
        stage = Path(self.build_temp).resolve() / "stage"
        target = Path(self.get_ext_fullpath(ext.name)).resolve()
        shutil.rmtree(stage, ignore_errors=True)
        cmake = ["cmake", "-S", str(SOURCE), "-B", str(build_dir),
                 "-DCMAKE_BUILD_TYPE=RelWithDebInfo", "-DQTZQ_BUILD_TOOLS=OFF",
                 "-DQTZQ_BUILD_TESTS=OFF", "-DQTZQ_BUILD_PYTHON=ON",
                 f"-DPython3_EXECUTABLE={sys.executable}",
                 "-DQTZQ_PYTHON_INSTALL_DIR=wheel", "-DCMAKE_INSTALL_LIBDIR=wheel/qtzqeffect"]
        jobs = os.environ.get("CMAKE_BUILD_PARALLEL_LEVEL", str(os.cpu_count() or 2))
        subprocess.run(cmake, check=True)
        subprocess.run(["cmake", "--build", str(build_dir), "--target", "_qtzqeffect",
                        "-j", jobs], check=True)
        subprocess.run(["cmake", "--install", str(build_dir), "--prefix", str(stage), "--strip"],
                       check=True, stdout=subprocess.DEVNULL)
        built = stage / "wheel" / "qtzqeffect"
        target.parent.mkdir(parents=True, exist_ok=True)
        shutil.copyfile(built / target.name, target)
        # The soname link resolves to the real file: a wheel keeps no links.
        soname = f"libQtzqeffect.so.{self.distribution.get_version().split('.')[0]}"
        shutil.copyfile(built / soname, target.parent / soname)


setup(
    version=project_version(),
    packages=["qtzqeffect"],
    package_data={"qtzqeffect": ["*.pyi", "py.typed"]},
    ext_modules=[Extension("qtzqeffect._qtzqeffect", sources=[])],
    cmdclass={"build_ext": CMakeBuild},
)
