# What every target of our own is compiled with, and how its sources are collected.

# Definitions of the module's Windows: wide strings, Windows 7 and later. NOMINMAX keeps two
# macros of windows.h off std::min and std::max.
set(PROJECT_DEFINITIONS UNICODE _UNICODE WINVER=0x0601 _WIN32_WINNT=0x0601 NOMINMAX=)

if(MSVC)
  set(PROJECT_WARNINGS /W4 /WX /permissive- /Zc:__cplusplus /utf-8)
else()
  # Wine's headers have names that C++ knows as operators.
  set(PROJECT_WARNINGS -Wall -Wextra -Werror -fno-operator-names)
endif()

if(NOT MSVC)
  # llvm-rc runs clang by itself; the sources of resources are UTF-8. Without the "--" a source
  # such as /check/a.rc would be read as the option /c. The debugger's file lies beside each program.
  set(CMAKE_DEPFILE_FLAGS_RC "")
  set(CMAKE_RC_COMPILE_OBJECT
      "<CMAKE_RC_COMPILER> /C 65001 <DEFINES> <INCLUDES> <FLAGS> /fo <OBJECT> -- <SOURCE>")
  add_link_options("SHELL:-Xlinker /debug")
endif()

set(WINDOWS_LIBRARIES ole32 oleaut32 uuid shlwapi shell32 comctl32 comdlg32 user32 gdi32 advapi32
    version)

# Gives the sources and resource scripts below the folders that follow the variable's name.
function(collect_sources variable)
  set(patterns "")
  foreach(folder IN LISTS ARGN)
    list(APPEND patterns ${CMAKE_SOURCE_DIR}/${folder}/*.cpp ${CMAKE_SOURCE_DIR}/${folder}/*.rc
         ${CMAKE_SOURCE_DIR}/${folder}/*.def)
  endforeach()
  file(GLOB_RECURSE found CONFIGURE_DEPENDS ${patterns})
  set(${variable} ${found} PARENT_SCOPE)
endfunction()

# Makes a target one of ours: strict warnings, the project's definitions.
function(project_target target)
  target_compile_definitions(${target} PRIVATE ${PROJECT_DEFINITIONS})
  target_compile_options(${target} PRIVATE $<$<COMPILE_LANGUAGE:CXX>:${PROJECT_WARNINGS}>)
  if(MSVC)
    target_compile_options(${target} PRIVATE $<$<COMPILE_LANGUAGE:CXX>:/EHsc>)
  endif()
endfunction()

# Makes a library one that the host loads and unloads.
function(arx_target target)
  set_target_properties(${target} PROPERTIES SUFFIX ".arx")
endfunction()

# Most of the time that a workbench or test source takes goes into these headers: they are read once
# for each target. The module itself goes without, so that each of its sources includes what it uses.
function(precompile_common_headers target)
  target_precompile_headers(${target} PRIVATE <windows.h> <algorithm> <functional> <map> <memory>
                            <optional> <string> <vector> ${ARGN})
endfunction()
