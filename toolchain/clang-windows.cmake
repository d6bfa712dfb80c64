# CMake's toolchain file: clang and lld for Microsoft's C++ ABI, with Wine's headers and libc++.
include(${CMAKE_CURRENT_LIST_DIR}/Folders.cmake)
get_filename_component(toolchain_folder ${CMAKE_CURRENT_LIST_DIR}/../build/toolchain ABSOLUTE)

set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(CMAKE_C_COMPILER ${LLVM_FOLDER}/clang)
set(CMAKE_CXX_COMPILER ${LLVM_FOLDER}/clang++)
set(CMAKE_RC_COMPILER ${LLVM_FOLDER}/llvm-rc)
set(CMAKE_AR ${LLVM_FOLDER}/llvm-ar CACHE FILEPATH "")
set(CMAKE_RANLIB ${LLVM_FOLDER}/llvm-ranlib CACHE FILEPATH "")
set(CMAKE_C_COMPILER_TARGET x86_64-pc-windows-msvc)
set(CMAKE_CXX_COMPILER_TARGET x86_64-pc-windows-msvc)

set(CMAKE_FIND_ROOT_PATH ${toolchain_folder})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# The run-time library is part of the project; nothing can be linked before it is built.
set(CMAKE_TRY_COMPILE_TARGET_TYPE STATIC_LIBRARY)

file(GLOB clang_headers ${LLVM_FOLDER}/../lib/clang/*/include)
set(microsoft_flags
    "-fms-extensions -fms-compatibility -fms-compatibility-version=19.30 -nostdinc")
set(windows_headers
    "-isystem \"${clang_headers}\" -isystem \"${CMAKE_CURRENT_LIST_DIR}/headers\" -isystem \"${WINE_MSVCRT_FOLDER}\" -isystem \"${toolchain_folder}/adapted\" -isystem \"${WINE_WINDOWS_FOLDER}\"")
# The C++ library is linked statically, and without the C++ half of Microsoft's headers, which Wine
# hasn't got.
set(windows_definitions
    "-D_UCRT -DWINE_UNICODE_NATIVE -D_LIBCPP_NO_VCRUNTIME -D_LIBCPP_DISABLE_VISIBILITY_ANNOTATIONS -D_LIBCPP_NO_AUTO_LINK")
set(CMAKE_C_FLAGS_INIT "${microsoft_flags} ${windows_headers} ${windows_definitions}")
set(CMAKE_CXX_FLAGS_INIT
    "${microsoft_flags} -fcxx-exceptions -fexceptions -isystem \"${LIBCXX_FOLDER}\" ${windows_headers} ${windows_definitions}")
set(CMAKE_RC_FLAGS_INIT
    "-I \"${CMAKE_CURRENT_LIST_DIR}/headers\" -I \"${WINE_MSVCRT_FOLDER}\" -I \"${toolchain_folder}/adapted\" -I \"${WINE_WINDOWS_FOLDER}\"")

# Without a time stamp the same sources give the same bytes. No manifest: nothing here needs one.
set(link_flags
    "-L\"${toolchain_folder}/lib\" -Xlinker /Brepro -Wno-unused-command-line-argument")
set(CMAKE_EXE_LINKER_FLAGS_INIT "${link_flags}")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "${link_flags}")
set(CMAKE_MODULE_LINKER_FLAGS_INIT "${link_flags}")
set(CMAKE_C_STANDARD_LIBRARIES "" CACHE STRING "")
set(CMAKE_CXX_STANDARD_LIBRARIES
    "\"${toolchain_folder}/lib/c++.lib\" -lmsvcp140 -lvcruntime140 -lucrtbase -lkernel32 -Xlinker /manifest:no"
    CACHE STRING "")
# Which run-time libraries are linked stands above; no object asks for another.
set(CMAKE_MSVC_RUNTIME_LIBRARY "")
