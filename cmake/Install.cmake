# SPDX-License-Identifier: BSL-1.0
# Component Runtime: what programs load. Component Development: what building against it takes.
# Component Tools, the programs: see apps.
set(packageDir ${CMAKE_INSTALL_LIBDIR}/cmake/${PROJECT_NAME})

set(libraries HadrelCommonCalculations2008)
if(BUILD_SHARED_LIBS)
  list(APPEND libraries HadrelCommonCalculations2008Archive)
endif()
install(TARGETS ${libraries}
  EXPORT CalculationsTargets
  RUNTIME COMPONENT Runtime
  LIBRARY COMPONENT Runtime NAMELINK_COMPONENT Development
  ARCHIVE COMPONENT Development)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/Calculations
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
  COMPONENT Development)
install(EXPORT CalculationsTargets
  FILE ${PROJECT_NAME}Targets.cmake
  NAMESPACE Ruv::
  DESTINATION ${packageDir}
  COMPONENT Development)

configure_package_config_file(cmake/Config.cmake.in ${PROJECT_NAME}Config.cmake
  INSTALL_DESTINATION ${packageDir})
write_basic_package_version_file(${PROJECT_NAME}ConfigVersion.cmake
  COMPATIBILITY SameMinorVersion)
install(FILES
  ${PROJECT_BINARY_DIR}/${PROJECT_NAME}Config.cmake
  ${PROJECT_BINARY_DIR}/${PROJECT_NAME}ConfigVersion.cmake
  ${PROJECT_SOURCE_DIR}/cmake/FindPolyclipping.cmake
  DESTINATION ${packageDir}
  COMPONENT Development)

# The package finds its folder by itself, so that an installation may be moved.
file(RELATIVE_PATH prefixFromPackage /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
configure_file(cmake/library.pc.in ${PROJECT_NAME}.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/${PROJECT_NAME}.pc
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
  COMPONENT Development)
