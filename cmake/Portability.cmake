# `portability`: the module's sources, compiled to objects for the Microsoft C++ ABI, so that the
# build with the genuine SDK and a Microsoft-compatible compiler stays possible. Neither is at hand
# on the build machine; clang, libc++ and Wine's headers take their place.

find_program(CLANG19 NAMES clang++-19)
find_path(LIBCXX19_FOLDER __config_site PATHS /usr/lib/llvm-19/include/c++/v1
          NO_CMAKE_FIND_ROOT_PATH)
find_path(WINE_MSVCRT_FOLDER corecrt.h PATHS /usr/include/wine/wine/msvcrt
          /usr/include/wine/msvcrt NO_CMAKE_FIND_ROOT_PATH)
find_path(WINE_WINDOWS_FOLDER winnt.h PATHS /usr/include/wine/wine/windows
          /usr/include/wine/windows NO_CMAKE_FIND_ROOT_PATH)
find_path(COMDEF_FOLDER comdef.h PATHS /usr/x86_64-w64-mingw32/include NO_DEFAULT_PATH
          NO_CMAKE_FIND_ROOT_PATH)

set(portability_objects "")
if(CLANG19 AND LIBCXX19_FOLDER AND WINE_MSVCRT_FOLDER AND WINE_WINDOWS_FOLDER AND COMDEF_FOLDER)
  set(portability_folder ${CMAKE_BINARY_DIR}/portability)
  set(adapted ${portability_folder}/adapted)
  file(MAKE_DIRECTORY ${portability_folder}/site ${adapted})

  # Copies a header with text replaced (pairs of regular expression and replacement); a pattern
  # that is no longer there means that the header has changed and the copy would be wrong.
  function(adapt_header from to)
    file(READ ${from} text)
    set(replacements ${ARGN})
    while(replacements)
      list(POP_FRONT replacements pattern replacement)
      string(REGEX REPLACE "${pattern}" "${replacement}" changed "${text}")
      if(changed STREQUAL text)
        message(FATAL_ERROR "${from} has nothing like ${pattern}: adapt cmake/Portability.cmake.")
      endif()
      set(text "${changed}")
    endwhile()
    file(CONFIGURE OUTPUT ${to} CONTENT "@text@" @ONLY)
  endfunction()

  # libc++ without what would ask for a runtime library of its own.
  adapt_header(${LIBCXX19_FOLDER}/__config_site ${portability_folder}/site/__config_site
    "/\\* #undef (_LIBCPP_HAS_NO_(THREADS|LOCALIZATION|FILESYSTEM|MONOTONIC_CLOCK|RANDOM_DEVICE)) \\*/"
    "#define \\1")
  # clang has the 128-bit exchange built in under this very name.
  adapt_header(${WINE_WINDOWS_FOLDER}/winnt.h ${adapted}/winnt.h
    "InterlockedCompareExchange128" "WineInterlockedCompareExchange128")
  # With these __uuidof works, as it does with Microsoft's headers.
  adapt_header(${WINE_WINDOWS_FOLDER}/rpcndr.h ${adapted}/rpcndr.h
    "#define DECLSPEC_UUID\\(x\\)" "#define DECLSPEC_UUID(x) __declspec(uuid(x))"
    "#define MIDL_INTERFACE\\(x\\) +struct" "#define MIDL_INTERFACE(x) struct __declspec(uuid(x))")
  foreach(header comdef.h comdefsp.h comip.h)
    configure_file(${COMDEF_FOLDER}/${header} ${adapted}/${header} COPYONLY)
  endforeach()
  # comutil.h uses these two without including what defines them.
  adapt_header(${COMDEF_FOLDER}/comutil.h ${adapted}/comutil.h "__LONG32" "long"
    "__MINGW_EXTENSION" "")
  # What MinGW's comdef family expects of MinGW's own basic headers.
  file(CONFIGURE OUTPUT ${adapted}/_mingw.h CONTENT "#pragma once
#define __MINGW_SELECTANY __declspec(selectany)
#define __EXCEPTIONS 1
")
  file(CONFIGURE OUTPUT ${adapted}/new.h CONTENT "#pragma once\n#include <new>\n")
  # Wine's math.h has macros here where libc++ wants functions.
  file(CONFIGURE OUTPUT ${portability_folder}/ahead.h CONTENT "#pragma once
bool isnan(double);
bool isinf(double);
")

  execute_process(COMMAND ${CLANG19} -print-resource-dir OUTPUT_VARIABLE clang_resources
                  OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  set(microsoft_abi
      --target=x86_64-pc-windows-msvc -fms-extensions -fms-compatibility
      -fms-compatibility-version=19.30 -fno-operator-names -fcxx-exceptions -fexceptions -nostdinc
      -isystem ${portability_folder}/site -isystem ${LIBCXX19_FOLDER}
      -isystem ${clang_resources}/include -isystem ${WINE_MSVCRT_FOLDER} -isystem ${adapted}
      -isystem ${WINE_WINDOWS_FOLDER} -include ${portability_folder}/ahead.h
      -D_UCRT -DWINE_UNICODE_NATIVE -D_LIBCPP_NO_VCRUNTIME
      -D_LIBCPP_DISABLE_VISIBILITY_ANNOTATIONS)

  foreach(file IN LISTS module_files)
    check_name_of(${file} name)
    set(object ${checks_folder}/${name}.obj)
    add_custom_command(
      OUTPUT ${object}
      COMMAND ${CLANG19} ${microsoft_abi} ${module_flags} -Wall -Wextra -Werror -MD -MF ${object}.d
              -MT ${object} -c ${file} -o ${object}
      DEPENDS ${file} ${module_order_dependency}
      DEPFILE ${object}.d
      COMMENT "Compiling ${name} for the Microsoft ABI" VERBATIM)
    list(APPEND portability_objects ${object})
  endforeach()
  add_custom_target(portability DEPENDS ${portability_objects})
else()
  add_missing_check(portability "clang-19, libc++-19-dev, libwine-dev and MinGW's comdef.h")
endif()
