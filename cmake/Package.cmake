# SPDX-License-Identifier: BSL-1.0
# Debian packages of what Install.cmake installs, one for each component. tools/package makes and
# checks them.
get_target_property(soversion HadrelCommonCalculations2008 SOVERSION)
string(TOLOWER lib${PROJECT_NAME} packageName)

set(CPACK_GENERATOR DEB)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL Runtime Development)
if(BUILD_PROGRAMS)
  list(APPEND CPACK_COMPONENTS_ALL Tools)
endif()
if(BUILD_PYTHON)
  list(APPEND CPACK_COMPONENTS_ALL Python)
endif()
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_PACKAGE_CONTACT "The maintainers of ${PROJECT_NAME} <root@localhost>"
  CACHE STRING "Maintainer named in packages")

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
set(abilities "Axes, profiles and their comparison, circle and ellipse fits, machine guidance, free stations.")

# Debian puts a hyphen between a name that ends in a digit and the version.
set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME ${packageName}-${soversion})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_RUNTIME_DESCRIPTION "${abilities}\nThe shared library.")

# Boost and Clipper are named in headers; the CMake package asks pkg-config for Clipper.
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME ${packageName}-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "${CPACK_DEBIAN_RUNTIME_PACKAGE_NAME} (= ${PROJECT_VERSION}), libboost-dev, libpolyclipping-dev, pkg-config")
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION
  "${abilities}\nHeaders, CMake package and pkg-config file.")

set(CPACK_DEBIAN_TOOLS_PACKAGE_NAME ${packageName}-tools)
set(CPACK_DEBIAN_TOOLS_PACKAGE_SECTION science)
set(CPACK_DEBIAN_TOOLS_PACKAGE_SHLIBDEPS ON)
# The library is no package of Debian's that the tool for dependencies could look up.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/src)
set(CPACK_DEBIAN_TOOLS_PACKAGE_DEPENDS "${CPACK_DEBIAN_RUNTIME_PACKAGE_NAME} (= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_TOOLS_DESCRIPTION "${abilities}
The programs tunnel_survey and free_station.")

# The extension is for one version of Python, and holds the library itself.
if(BUILD_PYTHON)
  find_package(Python3 REQUIRED COMPONENTS Interpreter)
  math(EXPR nextPython "${Python3_VERSION_MINOR} + 1")
  set(CPACK_DEBIAN_PYTHON_PACKAGE_NAME python3-hadrel)
  set(CPACK_DEBIAN_PYTHON_PACKAGE_SECTION python)
  set(CPACK_DEBIAN_PYTHON_PACKAGE_SHLIBDEPS ON)
  set(CPACK_DEBIAN_PYTHON_PACKAGE_DEPENDS
    "python3 (>= 3.${Python3_VERSION_MINOR}~), python3 (<< 3.${nextPython}), python3-numpy")
  set(CPACK_DEBIAN_PYTHON_PACKAGE_SUGGESTS "python3-dask, python3-distributed, python3-matplotlib")
  set(CPACK_DEBIAN_PYTHON_DESCRIPTION "${abilities}\nFor Python and numpy.")
endif()

# Where Debian looks for the licences of a package.
foreach(component Runtime Development Tools Python)
  string(TOUPPER ${component} key)
  if(component IN_LIST CPACK_COMPONENTS_ALL)
    install(FILES cmake/copyright COMPONENT ${component}
      DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${CPACK_DEBIAN_${key}_PACKAGE_NAME})
  endif()
endforeach()
include(CPack)
