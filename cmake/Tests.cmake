# The tests, as ctest runs them: each has a label and a time limit. What needs Wine, or the build folder
# for a build, waits for its turn; the sweep has a Wine of its own and runs beside the others. Those of
# the configuration `all` take hours and need `ctest -C all`.

find_path(GOOGLETEST_FOLDER googletest/CMakeLists.txt PATHS /usr/src/googletest
          NO_CMAKE_FIND_ROOT_PATH REQUIRED)
set(BUILD_GMOCK OFF CACHE BOOL "" FORCE)
set(gtest_disable_pthreads ON CACHE BOOL "" FORCE)
set(INSTALL_GTEST OFF CACHE BOOL "" FORCE)
add_subdirectory(${GOOGLETEST_FOLDER} ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)

enable_testing()
set(run_under_wine ${CMAKE_SOURCE_DIR}/cmake/run-under-wine)
# ctest begins with the costliest: the sweep, then the checks of the sources.
set(cost_of_sweep 30)
set(cost_of_sources 20)
set(cost_of_suites 10)

# A file as a Windows program names it.
function(windows_path variable path)
  string(REPLACE "/" "\\" path "Z:${path}")
  set(${variable} ${path} PARENT_SCOPE)
endfunction()

# Adds a test that runs a program of the build under Wine; cmake/run-under-wine explains `kind`.
# Arguments for the program may follow.
function(add_wine_test test kind seconds target)
  add_test(NAME ${test}
           COMMAND ${run_under_wine} ${kind} ${seconds} $<TARGET_FILE:${target}> ${ARGN})
  # The program's own limit ends it in good order; this one is for what runs it, which may have to make
  # the prefix first.
  math(EXPR limit "${seconds} + 600")
  set_tests_properties(${test} PROPERTIES LABELS ${test} RESOURCE_LOCK wine TIMEOUT ${limit}
                       COST ${cost_of_suites})
endfunction()

add_subdirectory(tests)
windows_path(drawings ${CMAKE_SOURCE_DIR}/workbench/drawings)

# --- the sweep ----------------------------------------------------------------------------------

# Adds a share of the sweep's runs: of those with a call that fails, and of those with an allocation.
# Those with the same prefix take turns.
function(add_sweep test prefix seconds calls allocations)
  math(EXPR limit "${seconds} + 600")
  add_test(NAME ${test}
           COMMAND ${run_under_wine} --prefix ${prefix} --log ${test} counting ${seconds}
                   $<TARGET_FILE:sweep> --list --drawings ${drawings} --share ${calls}
                   --allocations ${allocations} ${ARGN})
  set_tests_properties(${test} PROPERTIES LABELS sweep TIMEOUT ${limit} COST ${cost_of_sweep}
                       RESOURCE_LOCK ${prefix})
endfunction()

add_sweep(sweep wine-sweep 1800 0/800 0/200)
# All is done by eight, since a process that does much becomes slow; two run at a time.
foreach(part RANGE 7)
  math(EXPR turn "${part} % 2")
  add_sweep(sweep_${part}_of_8 wine-sweep-${turn} 10800 ${part}/8 ${part}/8 CONFIGURATIONS all)
endforeach()

# --- sessions and tour --------------------------------------------------------------------------

# SESSIONS and SEED of the environment say how many sessions, and from which seed on.
add_test(NAME sessions
         COMMAND bash -c [[exec "$0" counting $((120 + ${SESSIONS:-40} * 30)) "$@" \
                           --sessions "${SESSIONS:-40}" --seed "${SEED:-1}"]]
                 ${run_under_wine} $<TARGET_FILE:sessions> --drawings ${drawings})
set_tests_properties(sessions PROPERTIES LABELS sessions RESOURCE_LOCK wine TIMEOUT 86400
                     COST ${cost_of_suites})

# The tour's script, without a look at its pictures; and what other readers find in the drawing that it saves.
set(tour_folder ${CMAKE_BINARY_DIR}/check/tour)
set(tour_work_folder ${tour_folder}/work)
file(MAKE_DIRECTORY ${tour_folder})
windows_path(tour_script ${CMAKE_SOURCE_DIR}/workbench/scripts/tour.txt)
windows_path(tour_work ${tour_work_folder})
add_wine_test(tour plain 330 acad --timeout 300 --script ${tour_script} --work ${tour_work}
              --drawings ${drawings})
add_test(NAME readback
         COMMAND /usr/bin/python3 ${CMAKE_SOURCE_DIR}/tests/readback/title_block.py
                 ${CMAKE_SOURCE_DIR}/workbench/drawings/Site/Plan.dxf
                 ${tour_work_folder}/Plant/Site/Plan.dxf)
set_tests_properties(tour PROPERTIES WORKING_DIRECTORY ${tour_folder} FIXTURES_SETUP tour)
set_tests_properties(readback PROPERTIES LABELS readback FIXTURES_REQUIRED tour TIMEOUT 120)

# --- the sources, the module for the workstation, its package -----------------------------------

# Adds a check of the sources that is a target of the build.
function(add_source_check test target seconds)
  add_test(NAME ${test}
           COMMAND ${CMAKE_COMMAND} --build ${CMAKE_BINARY_DIR} --target ${target} -- -k 0 ${ARGN})
  set_tests_properties(${test} PROPERTIES LABELS sources RESOURCE_LOCK build TIMEOUT ${seconds}
                       COST ${cost_of_sources})
endfunction()

add_source_check(format format_check 1800)
add_source_check(tidy tidy 3600)
add_source_check(tidy_others tidy_others 7200 CONFIGURATIONS all)
add_source_check(interface interface 1800)
add_test(NAME rooms COMMAND ${CMAKE_SOURCE_DIR}/cmake/check-rooms)
set_tests_properties(rooms PROPERTIES LABELS sources TIMEOUT 60 COST ${cost_of_sources})
add_test(NAME link COMMAND ${CMAKE_SOURCE_DIR}/tests/link/run ${CMAKE_BINARY_DIR}/check/link)
set_tests_properties(link PROPERTIES LABELS link RESOURCE_LOCK build TIMEOUT 1800
                     COST ${cost_of_sources})
add_test(NAME package COMMAND ${CMAKE_SOURCE_DIR}/tests/package/run ${CMAKE_BINARY_DIR}/check/package)
set_tests_properties(package PROPERTIES LABELS package RESOURCE_LOCK build TIMEOUT 1800
                     COST ${cost_of_sources})
