# SPDX-License-Identifier: BSL-1.0
"""A Conan 2 recipe of the source tree that it stands in: conan create cmake/packaging/conan

Written by Conan's documentation, not run.
"""
import os

from conan import ConanFile
from conan.tools.cmake import CMake, CMakeDeps, CMakeToolchain, cmake_layout
from conan.tools.files import copy


class HadrelCommonCalculations2008(ConanFile):
    name = "hadrel-common-calculations-2008"
    version = "0.1.0"
    description = "Geometric calculations for surveying in tunnel construction"
    license = "BSL-1.0"
    package_type = "library"
    settings = "os", "compiler", "build_type", "arch"
    options = {"shared": [True, False]}
    default_options = {"shared": False}

    def export_sources(self):
        root = os.path.join(self.recipe_folder, "..", "..", "..")
        for pattern in ("CMakeLists.txt", "LICENSE", "cmake/*", "include/*", "src/*"):
            copy(self, pattern, root, self.export_sources_folder)

    def layout(self):
        cmake_layout(self)

    def requirements(self):
        self.requires("boost/1.74.0", transitive_headers=True, options={"header_only": True})
        self.requires("clipper/6.4.2", transitive_headers=True)
        self.requires("eigen/3.4.0")

    def generate(self):
        toolchain = CMakeToolchain(self)
        for part in ("TESTING", "PROGRAMS", "EXAMPLES", "BENCHMARKS"):
            toolchain.cache_variables[f"BUILD_{part}"] = False
        toolchain.generate()
        dependencies = CMakeDeps(self)
        dependencies.set_property("clipper", "cmake_file_name", "Polyclipping")
        dependencies.set_property("clipper", "cmake_target_name", "Polyclipping::Polyclipping")
        dependencies.set_property("clipper", "cmake_find_mode", "module")
        dependencies.generate()

    def build(self):
        cmake = CMake(self)
        cmake.configure()
        cmake.build()

    def package(self):
        CMake(self).install()
        copy(self, "LICENSE", self.source_folder, os.path.join(self.package_folder, "licenses"))

    def package_info(self):
        self.cpp_info.libs = ["HadrelCommonCalculations2008"]
        self.cpp_info.requires = ["boost::headers", "clipper::clipper", "eigen::eigen"]
        self.cpp_info.set_property("cmake_file_name", "HadrelCommonCalculations2008")
        self.cpp_info.set_property("cmake_target_name", "Ruv::HadrelCommonCalculations2008")
        if not self.options.shared:
            self.cpp_info.defines = ["CALCULATIONS_STATIC"]
