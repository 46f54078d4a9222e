# SPDX-License-Identifier: BSL-1.0
# Finds Clipper 6 by its header and its library, since it comes without a CMake package and not every
# system has pkg-config. Defines the target Polyclipping::Polyclipping. Installed with the library,
# whose headers name Clipper.
include(FindPackageHandleStandardArgs)

find_path(POLYCLIPPING_INCLUDE_DIR clipper.hpp PATH_SUFFIXES polyclipping)
find_library(POLYCLIPPING_LIBRARY polyclipping)
mark_as_advanced(POLYCLIPPING_INCLUDE_DIR POLYCLIPPING_LIBRARY)
find_package_handle_standard_args(Polyclipping
  REQUIRED_VARS POLYCLIPPING_LIBRARY POLYCLIPPING_INCLUDE_DIR)

if(Polyclipping_FOUND AND NOT TARGET Polyclipping::Polyclipping)
  add_library(Polyclipping::Polyclipping UNKNOWN IMPORTED)
  set_target_properties(Polyclipping::Polyclipping PROPERTIES
    IMPORTED_LOCATION ${POLYCLIPPING_LIBRARY}
    INTERFACE_INCLUDE_DIRECTORIES ${POLYCLIPPING_INCLUDE_DIR})
endif()
