# Checks that compile nothing to keep: `format_check`, `tidy` and `interface`. Each
# leaves a stamp a file, so a second run looks only at what has changed. None is built by default.

if(NOT CMAKE_CROSSCOMPILING)
  return()
endif()

set(checks_folder ${CMAKE_BINARY_DIR}/checks)
file(MAKE_DIRECTORY ${checks_folder})

function(project_files variable)
  set(patterns "")
  foreach(extension IN LISTS ARGN)
    foreach(folder src hostapi toolchain workbench tests benchmarks installer)
      list(APPEND patterns ${CMAKE_SOURCE_DIR}/${folder}/*.${extension})
    endforeach()
  endforeach()
  file(GLOB_RECURSE found CONFIGURE_DEPENDS ${patterns})
  set(${variable} ${found} PARENT_SCOPE)
endfunction()

# A file's name in the checks' folder: its path below the root with dots.
function(check_name_of file variable)
  file(RELATIVE_PATH name ${CMAKE_SOURCE_DIR} ${file})
  string(REPLACE "/" "." name ${name})
  set(${variable} ${name} PARENT_SCOPE)
endfunction()

# Adds a check whose program isn't there: it fails when it is asked for.
function(add_missing_check target needed)
  add_custom_target(${target}
    COMMAND ${CMAKE_COMMAND} -E echo "${target} needs ${needed}."
    COMMAND ${CMAKE_COMMAND} -E false)
endfunction()

# --- format -------------------------------------------------------------------------------------

find_program(CLANG_FORMAT_PROGRAM NAMES clang-format-19)
if(CLANG_FORMAT_PROGRAM)
  set(format_stamps "")
  project_files(formatted_files h cpp)
  foreach(file IN LISTS formatted_files)
    check_name_of(${file} name)
    set(stamp ${checks_folder}/${name}.format)
    add_custom_command(
      OUTPUT ${stamp}
      COMMAND ${CLANG_FORMAT_PROGRAM} --style=file --dry-run -Werror ${file}
      COMMAND ${CMAKE_COMMAND} -E touch ${stamp}
      DEPENDS ${file} ${CMAKE_SOURCE_DIR}/.clang-format
      COMMENT "Checking the format of ${name}" VERBATIM)
    list(APPEND format_stamps ${stamp})
  endforeach()
  add_custom_target(format_check DEPENDS ${format_stamps})
  add_custom_target(format COMMAND ${CLANG_FORMAT_PROGRAM} --style=file -i ${formatted_files} VERBATIM)
else()
  add_missing_check(format_check clang-format-19)
endif()

# --- clang-tidy ---------------------------------------------------------------------------------

# The definitions and include folders of the module's objects, as command-line words.
set(project_defines ${PROJECT_DEFINITIONS})
list(TRANSFORM project_defines PREPEND -D)
set(module_flags -std=c++17 ${project_defines} -I ${CMAKE_SOURCE_DIR}/src
    -I ${CMAKE_SOURCE_DIR}/hostapi -isystem ${GENERATED_FOLDER})
set(module_order_dependency tessaro_client_files)

find_program(CLANG_TIDY NAMES clang-tidy-19)
separate_arguments(toolchain_flags UNIX_COMMAND "${CMAKE_CXX_FLAGS}")
list(PREPEND toolchain_flags --target=${CMAKE_CXX_COMPILER_TARGET} -fno-operator-names)

# Adds a target that runs clang-tidy over sources and the headers with a matching path, without some
# of the checks, and with the compiler flags that follow.
function(add_tidy_target target sources headers left_out)
  set(stamps "")
  foreach(file IN LISTS ${sources})
    check_name_of(${file} name)
    set(stamp ${checks_folder}/${name}.tidy)
    add_custom_command(
      OUTPUT ${stamp}
      COMMAND ${CMAKE_CXX_COMPILER} ${toolchain_flags} ${ARGN} -MM -MF ${stamp}.d -MT ${stamp} ${file}
      COMMAND ${CLANG_TIDY} --quiet --config-file=${CMAKE_SOURCE_DIR}/.clang-tidy
              --header-filter=${headers} --checks=${left_out} ${file} --
              ${toolchain_flags} ${ARGN}
      COMMAND ${CMAKE_COMMAND} -E touch ${stamp}
      DEPENDS ${file} ${CMAKE_SOURCE_DIR}/.clang-tidy ${module_order_dependency}
      DEPFILE ${stamp}.d
      COMMENT "Running clang-tidy on ${name}" VERBATIM)
    list(APPEND stamps ${stamp})
  endforeach()
  add_custom_target(${target} DEPENDS ${stamps})
endfunction()

file(GLOB_RECURSE module_files CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/src/*.cpp)
file(GLOB_RECURSE other_files CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/workbench/*.cpp
     ${CMAKE_SOURCE_DIR}/toolchain/*.cpp ${CMAKE_SOURCE_DIR}/tests/*.cpp
     ${CMAKE_SOURCE_DIR}/benchmarks/*.cpp ${CMAKE_SOURCE_DIR}/installer/*.cpp)
if(CLANG_TIDY)
  add_tidy_target(tidy module_files "/src/" "" ${module_flags})
  # COM objects and test fixtures are never deleted through their bases; a test's lists of texts are
  # full of literals that go on in the next line, and its registry data has nulls in it.
  set(left_out -cppcoreguidelines-virtual-class-destructor,-bugprone-suspicious-missing-comma)
  string(APPEND left_out ,-bugprone-string-literal-with-embedded-nul)
  add_tidy_target(tidy_others other_files "/(workbench|toolchain|tests|benchmarks|installer)/" ${left_out}
                  ${module_flags} -DPROJECT_FOLDER="" -I ${CMAKE_SOURCE_DIR}/workbench
                  -I ${CMAKE_SOURCE_DIR}/tests -isystem ${CMAKE_BINARY_DIR}/json
                  -isystem ${GOOGLETEST_FOLDER}/googletest/include)
else()
  add_missing_check(tidy clang-tidy-19)
  add_missing_check(tidy_others clang-tidy-19)
endif()

# --- the host's interface ------------------------------------------------------------------------

include(Interface)
