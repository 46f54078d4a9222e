# SPDX-License-Identifier: BSL-1.0
# Debian packages of what Install.cmake installs, one for each component, which tools/package makes
# and checks; for Windows a ZIP archive of everything, which tools/test-windows does.
if(WIN32)
  set(CPACK_GENERATOR ZIP)
  set(CPACK_PACKAGE_FILE_NAME ${PROJECT_NAME}-${PROJECT_VERSION}-windows-${CMAKE_SYSTEM_PROCESSOR})
  set(CPACK_STRIP_FILES ON)
  install(FILES LICENSE cmake/packaging/debian/copyright DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${PROJECT_NAME}
    COMPONENT Runtime)
  include(CPack)
  return()
endif()

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
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/packaging/debian/StagePackage.cmake)
set(CPACK_PACKAGE_CONTACT "The maintainers of ${PROJECT_NAME} <maintainers@hadrel.invalid>"
  CACHE STRING "Maintainer named in packages")

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
set(abilities "Axes, profiles and their comparison, circle and ellipse fits, machine
guidance, free stations: what surveying in tunnel construction computes,
in metres and radians.")

# Debian puts a hyphen between a name that ends in a digit and the version.
set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME ${packageName}-${soversion})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_RUNTIME_DESCRIPTION "${abilities}
.
The shared library.")
# A trigger refreshes the cache of libraries. CPack writes scripts that do it too, as Debian no longer
# wants, unless it is told of others: there are none.
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA
  ${PROJECT_SOURCE_DIR}/cmake/packaging/debian/triggers no-scripts/postinst no-scripts/postrm)

# Boost and Clipper are named in headers.
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME ${packageName}-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "${CPACK_DEBIAN_RUNTIME_PACKAGE_NAME} (= ${PROJECT_VERSION}), libboost-dev, libpolyclipping-dev")
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION "${abilities}
.
Headers, static library, CMake package and pkg-config file.")

set(CPACK_DEBIAN_TOOLS_PACKAGE_NAME ${packageName}-tools)
set(CPACK_DEBIAN_TOOLS_PACKAGE_SECTION science)
set(CPACK_DEBIAN_TOOLS_PACKAGE_SHLIBDEPS ON)
# The library is no package of Debian's that the tool for dependencies could look up.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/src)
set(CPACK_DEBIAN_TOOLS_PACKAGE_DEPENDS "${CPACK_DEBIAN_RUNTIME_PACKAGE_NAME} (= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_TOOLS_DESCRIPTION "${abilities}
.
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
  set(CPACK_DEBIAN_PYTHON_PACKAGE_CONTROL_EXTRA
    ${PROJECT_SOURCE_DIR}/cmake/packaging/debian/python/postinst
    ${PROJECT_SOURCE_DIR}/cmake/packaging/debian/python/prerm)
  set(CPACK_DEBIAN_PYTHON_PACKAGE_SUGGESTS "python3-dask, python3-distributed, python3-matplotlib")
  set(CPACK_DEBIAN_PYTHON_DESCRIPTION "${abilities}
.
For Python and numpy.")
endif()

# Where Debian looks for the licences and the changes of a package. The time is SOURCE_DATE_EPOCH
# where that is set.
string(TIMESTAMP changelogTime "%a, %d %b %Y %H:%M:%S +0000" UTC)
configure_file(cmake/packaging/debian/changelog.in changelog @ONLY)
execute_process(COMMAND gzip -9 --no-name --keep --force ${PROJECT_BINARY_DIR}/changelog)
foreach(component Runtime Development Tools Python)
  string(TOUPPER ${component} key)
  if(component IN_LIST CPACK_COMPONENTS_ALL)
    install(FILES cmake/packaging/debian/copyright ${PROJECT_BINARY_DIR}/changelog.gz COMPONENT ${component}
      DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${CPACK_DEBIAN_${key}_PACKAGE_NAME})
  endif()
endforeach()
include(CPack)
