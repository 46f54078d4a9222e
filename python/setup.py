# SPDX-License-Identifier: BSL-1.0
"""Builds the extension with CMake, from the sources beside this folder."""

import os
import re
import subprocess
import sys
from pathlib import Path

from setuptools import Extension, setup
from setuptools.command.build_ext import build_ext

ROOT = Path(__file__).resolve().parent.parent


def version() -> str:
    """That of the library."""
    found = re.search(r"^  VERSION ([0-9.]+)$", (ROOT / "CMakeLists.txt").read_text(), re.M)
    assert found, "CMakeLists.txt has no version"
    return found.group(1)


class CMakeBuild(build_ext):
    """Takes the one extension from CMake's build folder."""

    def build_extension(self, ext: Extension) -> None:
        options = {"BUILD_PYTHON": "ON", "Python3_EXECUTABLE": sys.executable}
        if "HADREL_BUILD_DIR" in os.environ:  # configured, and perhaps built but for the extension
            folder = Path(os.environ["HADREL_BUILD_DIR"])
            command = ["cmake", folder]
        else:
            folder = Path(self.build_temp).resolve() / "cmake"
            command = ["cmake", "-G", "Ninja", "-S", ROOT, "-B", folder]
            options |= {
                "BUILD_BENCHMARKS": "OFF",
                "BUILD_EXAMPLES": "OFF",
                "BUILD_PROGRAMS": "OFF",
                "BUILD_TESTING": "OFF",
                "CALCULATIONS_UNITY": "ON",
                "CMAKE_BUILD_TYPE": "Release",
            }
        subprocess.run(command + [f"-D{name}={value}" for name, value in options.items()], check=True)
        subprocess.run(["cmake", "--build", folder, "--target", "hadrelNative"], check=True)
        built, = (folder / "python" / "hadrel").glob("_native*")
        self.copy_file(str(built), self.get_ext_fullpath(ext.name))


setup(version=version(), ext_modules=[Extension("hadrel._native", sources=[])], cmdclass={"build_ext": CMakeBuild})
