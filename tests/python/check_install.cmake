# Installs the build into a scratch prefix and imports the installed package
# from there, outside the build tree: the package must be complete and load
# the installed library through its RPATH.
#   cmake -DBUILD_DIR=... -DPREFIX=... -DPACKAGE_DIR=... -DPYTHON=... -P check_install.cmake
file(REMOVE_RECURSE ${PREFIX})
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${PREFIX}
  OUTPUT_QUIET RESULT_VARIABLE failed)
if(failed)
  message(FATAL_ERROR "cmake --install failed")
endif()
execute_process(
  COMMAND ${CMAKE_COMMAND} -E env PYTHONPATH=${PREFIX}/${PACKAGE_DIR}
    ${PYTHON} ${CMAKE_CURRENT_LIST_DIR}/installed_package.py ${PREFIX}
  WORKING_DIRECTORY ${PREFIX}
  RESULT_VARIABLE failed)
if(failed)
  message(FATAL_ERROR "the installed package does not work")
endif()
