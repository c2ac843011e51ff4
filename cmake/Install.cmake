# Installs the library, its headers, a pkg-config file and a CMake package,
# so that applications can use `find_package(Qtzqeffect)` or
# `pkg-config --cflags --libs qtzqeffect`.
include(CMakePackageConfigHelpers)

set(QTZQ_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/Qtzqeffect)

install(TARGETS Qtzqeffect EXPORT QtzqeffectTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
  INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/qtzqeffect
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})

install(EXPORT QtzqeffectTargets
  NAMESPACE Qtzqeffect::
  DESTINATION ${QTZQ_CMAKE_DIR})
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/QtzqeffectConfig.cmake.in
  ${CMAKE_CURRENT_BINARY_DIR}/QtzqeffectConfig.cmake
  INSTALL_DESTINATION ${QTZQ_CMAKE_DIR})
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/QtzqeffectConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES
  ${CMAKE_CURRENT_BINARY_DIR}/QtzqeffectConfig.cmake
  ${CMAKE_CURRENT_BINARY_DIR}/QtzqeffectConfigVersion.cmake
  DESTINATION ${QTZQ_CMAKE_DIR})

if(BUILD_SHARED_LIBS)
  set(QTZQ_PC_CFLAGS "")
else()
  set(QTZQ_PC_CFLAGS "-DQTZQ_STATIC")
endif()
# The .pc file locates the prefix relative to itself, so that an installed
# tree can be moved (or installed with --prefix) and still be found.
file(RELATIVE_PATH QTZQ_PC_TO_PREFIX
  /prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig /prefix)
configure_file(${CMAKE_CURRENT_LIST_DIR}/qtzqeffect.pc.in
  ${CMAKE_CURRENT_BINARY_DIR}/qtzqeffect.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/qtzqeffect.pc
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
