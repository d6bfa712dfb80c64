# Debian's g++-mingw-w64-x86-64-posix: the threads of the C++ library need the posix flavour.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Every binary depends on Windows' own libraries and ours, on nothing of the compiler's; without
# a time stamp the same sources give the same bytes.
set(link_once "-static -Wl,--no-insert-timestamp")
set(CMAKE_EXE_LINKER_FLAGS_INIT "${link_once}")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "${link_once}")
set(CMAKE_MODULE_LINKER_FLAGS_INIT "${link_once}")
set(CMAKE_RC_FLAGS_INIT "-c 65001")
