# Makes what the compiler needs for Microsoft's C++ ABI and Debian's packages don't have as it is:
# adapted headers, import libraries under the names that a Microsoft linker looks for, and the C++
# library. Everything lands in build/toolchain, beside the builds, so it is made once. Included by
# CMakeLists.txt before its project(), and run by itself with `cmake -P`. README.md tells what each
# piece is.

cmake_minimum_required(VERSION 3.25)
set(toolchain_source ${CMAKE_CURRENT_LIST_DIR})
get_filename_component(toolchain_folder ${toolchain_source}/../build/toolchain ABSOLUTE)
include(${toolchain_source}/Folders.cmake)
file(MAKE_DIRECTORY ${toolchain_folder}/adapted ${toolchain_folder}/lib)
# Two scripts that begin at the same time take turns.
file(LOCK ${toolchain_folder} DIRECTORY GUARD PROCESS TIMEOUT 1200)

# --- headers ------------------------------------------------------------------------------------

# Copies a header with text replaced (pairs of text and replacement). A text that isn't there any
# more means that the header has changed and that the copy would be wrong.
function(adapt_header from to)
  file(READ ${from} text)
  set(replacements ${ARGN})
  while(replacements)
    list(POP_FRONT replacements old new)
    string(FIND "${text}" "${old}" place)
    if(place EQUAL -1)
      message(FATAL_ERROR "${from} has no line with '${old}': adapt ${CMAKE_CURRENT_FUNCTION_LIST_FILE}.")
    endif()
    string(REPLACE "${old}" "${new}" text "${text}")
  endwhile()
  file(CONFIGURE OUTPUT ${to} CONTENT "@text@" @ONLY)
endfunction()

set(adapted ${toolchain_folder}/adapted)
# clang has the 128-bit exchange built in under this very name.
adapt_header(${WINE_WINDOWS_FOLDER}/winnt.h ${adapted}/winnt.h
  "InterlockedCompareExchange128" "WineInterlockedCompareExchange128")
# With these __uuidof works, as it does with Microsoft's headers.
adapt_header(${WINE_WINDOWS_FOLDER}/rpcndr.h ${adapted}/rpcndr.h
  "#define DECLSPEC_UUID(x)" "#define DECLSPEC_UUID(x) __declspec(uuid(x))"
  "#define MIDL_INTERFACE(x)   struct" "#define MIDL_INTERFACE(x) struct __declspec(uuid(x))")
# The comdef.h family (_bstr_t, _com_error, _com_ptr_t, _variant_t).
foreach(header comdefsp.h comip.h)
  configure_file(${COMDEF_FOLDER}/${header} ${adapted}/${header} COPYONLY)
endforeach()
# The result of this compiler's __uuidof can be an argument of a template.
adapt_header(${COMDEF_FOLDER}/comdef.h ${adapted}/comdef.h "#ifdef __CRT_UUID_DECL" "#if 0")
# It uses these two words of MinGW's without including what defines them.
adapt_header(${COMDEF_FOLDER}/comutil.h ${adapted}/comutil.h
  "__LONG32" "long" "__MINGW_EXTENSION" "")

# --- import libraries ---------------------------------------------------------------------------

# Wine's import libraries are called libNAME.a, a Microsoft linker looks for NAME.lib.
foreach(library IN LISTS IMPORT_LIBRARIES)
  if(NOT EXISTS ${WINE_LIBRARY_FOLDER}/lib${library}.a)
    message(FATAL_ERROR "${WINE_LIBRARY_FOLDER} has no lib${library}.a: libwine-dev has changed.")
  endif()
  file(CREATE_LINK ${WINE_LIBRARY_FOLDER}/lib${library}.a ${toolchain_folder}/lib/${library}.lib
       SYMBOLIC)
endforeach()
# Wine's import library of it has the C++ names of an older release only.
execute_process(
  COMMAND ${LLVM_FOLDER}/llvm-dlltool -m i386:x86-64 -d ${toolchain_source}/msvcp140.def
          -l ${toolchain_folder}/lib/msvcp140.lib
  COMMAND_ERROR_IS_FATAL ANY)

# --- the C++ library ----------------------------------------------------------------------------

# Runs a program and shows what it says only if it fails.
function(run_step)
  execute_process(COMMAND ${ARGN} OUTPUT_VARIABLE words ERROR_VARIABLE words RESULT_VARIABLE result)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "${words}\nThe C++ library can't be made (${libcxx_package}).")
  endif()
endfunction()

# Its headers come as a package for the build machine; the library for Windows is compiled from the
# source package of the same version.
execute_process(COMMAND dpkg-query -W -f "\${source:Package}=\${source:Version}" libc++-19-dev
                OUTPUT_VARIABLE libcxx_package COMMAND_ERROR_IS_FATAL ANY)
file(GLOB libcxx_recipe ${toolchain_source}/libcxx/* ${toolchain_source}/headers/*
     ${toolchain_source}/*.cmake)
set(libcxx_made "${libcxx_package}")
foreach(file IN LISTS libcxx_recipe)
  file(SHA256 ${file} hash)
  string(APPEND libcxx_made "\n${hash}")
endforeach()
set(libcxx_stamp ${toolchain_folder}/libcxx.made)
set(libcxx_was "")
if(EXISTS ${libcxx_stamp} AND EXISTS ${toolchain_folder}/lib/c++.lib)
  file(READ ${libcxx_stamp} libcxx_was)
endif()
if(NOT libcxx_was STREQUAL libcxx_made)
  set(libcxx_source ${toolchain_folder}/source)
  execute_process(COMMAND ${toolchain_source}/libcxx/fetch-source ${libcxx_package} ${libcxx_source}
                  RESULT_VARIABLE result)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "The C++ library can't be made without its source package.")
  endif()
  message("Compiling the C++ library for Windows (once; under a minute) ...")
  run_step(${CMAKE_COMMAND} -G Ninja -S ${toolchain_source}/libcxx -B ${toolchain_folder}/libcxx
           --toolchain ${toolchain_source}/clang-windows.cmake -DCMAKE_BUILD_TYPE=Release
           -DLIBCXX_SOURCE=${libcxx_source}/libcxx -DLIBRARY_FOLDER=${toolchain_folder}/lib)
  run_step(${CMAKE_COMMAND} --build ${toolchain_folder}/libcxx)
  file(WRITE ${libcxx_stamp} "${libcxx_made}")
endif()

file(LOCK ${toolchain_folder} DIRECTORY RELEASE)
