# unit_tests drives the module's parts directly, module_tests the built .arx in the workbench, workbench_tests
# the workbench itself. All are Windows programs; cmake/run-under-wine starts them.

find_path(GOOGLETEST_FOLDER googletest/CMakeLists.txt PATHS /usr/src/googletest
          NO_CMAKE_FIND_ROOT_PATH REQUIRED)
set(BUILD_GMOCK OFF CACHE BOOL "" FORCE)
set(gtest_disable_pthreads ON CACHE BOOL "" FORCE)
set(INSTALL_GTEST OFF CACHE BOOL "" FORCE)
add_subdirectory(${GOOGLETEST_FOLDER} ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)

enable_testing()
add_subdirectory(tests)
