# Where Debian keeps the pieces of the toolchain. Sets LLVM_FOLDER, LIBCXX_FOLDER,
# WINE_MSVCRT_FOLDER, WINE_WINDOWS_FOLDER, WINE_LIBRARY_FOLDER, COMDEF_FOLDER and IMPORT_LIBRARIES.

# Sets the variable to the first of the folders that has the file; names the package if none has.
function(find_toolchain_folder variable package file)
  foreach(folder IN LISTS ARGN)
    if(EXISTS ${folder}/${file})
      set(${variable} ${folder} PARENT_SCOPE)
      return()
    endif()
  endforeach()
  message(FATAL_ERROR "There is no ${file} in ${ARGN}: install Debian's package ${package}.")
endfunction()

find_toolchain_folder(LLVM_FOLDER clang-19 clang++ /usr/lib/llvm-19/bin)
find_toolchain_folder(LLVM_FOLDER lld-19 lld-link /usr/lib/llvm-19/bin)
find_toolchain_folder(LLVM_FOLDER llvm-19 llvm-rc /usr/lib/llvm-19/bin)
find_toolchain_folder(LIBCXX_FOLDER libc++-19-dev __config_site /usr/lib/llvm-19/include/c++/v1)
find_toolchain_folder(WINE_MSVCRT_FOLDER libwine-dev corecrt.h /usr/include/wine/wine/msvcrt
                      /usr/include/wine/msvcrt)
find_toolchain_folder(WINE_WINDOWS_FOLDER libwine-dev winnt.h /usr/include/wine/wine/windows
                      /usr/include/wine/windows)
file(GLOB wine_library_folders /usr/lib/*/wine/x86_64-windows /usr/lib/wine/x86_64-windows)
find_toolchain_folder(WINE_LIBRARY_FOLDER libwine-dev libucrtbase.a ${wine_library_folders})
find_toolchain_folder(COMDEF_FOLDER mingw-w64-common comdef.h /usr/share/mingw-w64/include)

# The libraries of Windows that the project links with, and the compiler's run-time libraries.
set(IMPORT_LIBRARIES kernel32 ucrtbase vcruntime140 user32 gdi32 gdiplus advapi32 ole32 oleaut32 uuid
    shlwapi shell32 comctl32 comdlg32 version)
