# SPDX-License-Identifier: BSL-1.0
# A vcpkg port of the source tree that it stands in, for use as an overlay:
#   vcpkg install --overlay-ports=cmake/packaging/vcpkg hadrel-common-calculations-2008
# Written by vcpkg's documentation, not run.
get_filename_component(SOURCE_PATH "${CMAKE_CURRENT_LIST_DIR}/../../.." ABSOLUTE)
string(COMPARE EQUAL "${VCPKG_LIBRARY_LINKAGE}" dynamic shared)

vcpkg_cmake_configure(SOURCE_PATH "${SOURCE_PATH}"
  OPTIONS
    -DBUILD_SHARED_LIBS=${shared}
    -DBUILD_TESTING=OFF
    -DBUILD_PROGRAMS=OFF
    -DBUILD_EXAMPLES=OFF
    -DBUILD_BENCHMARKS=OFF)
vcpkg_cmake_install()
vcpkg_cmake_config_fixup(PACKAGE_NAME HadrelCommonCalculations2008
  CONFIG_PATH lib/cmake/HadrelCommonCalculations2008)
file(REMOVE_RECURSE "${CURRENT_PACKAGES_DIR}/debug/include")
vcpkg_install_copyright(FILE_LIST
  "${SOURCE_PATH}/LICENSE" "${SOURCE_PATH}/cmake/packaging/debian/copyright")
