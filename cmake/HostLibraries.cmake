# What the module links with in the place of the kit's import libraries: libraries made from
# hostapi/interface.txt, which name the host's files, and the export lists of the stand-ins for these
# files. Their exports lead on to wbhost.dll, where the stand-in host is.
#   host_libraries: to link with. ACAD_EXPORTS and ACDB_EXPORTS: the export lists, as .def files.

set(host_library_folder ${CMAKE_BINARY_DIR}/hostlibraries)
file(MAKE_DIRECTORY ${host_library_folder})
set(host_interface_data ${CMAKE_SOURCE_DIR}/hostapi/interface.txt)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${host_interface_data})

# Sets the variable to the names that the host's file exports, " DATA" behind those of variables.
function(read_host_names variable file)
  file(STRINGS ${host_interface_data} lines)
  set(names "")
  set(inside FALSE)
  foreach(line IN LISTS lines)
    if(line MATCHES "^library (.*)$")
      string(COMPARE EQUAL "${CMAKE_MATCH_1}" "${file}" inside)
    elseif(inside AND line MATCHES "^  ([^ ].*)$")
      list(APPEND names "${CMAKE_MATCH_1}")
    endif()
  endforeach()
  if(NOT names)
    message(FATAL_ERROR "${host_interface_data} has no names of ${file}.")
  endif()
  set(${variable} ${names} PARENT_SCOPE)
endfunction()

# Makes NAME.lib and NAME-exports.def for the host's file.
function(add_host_library name file)
  read_host_names(names ${file})
  set(imports "LIBRARY ${file}\nEXPORTS\n")
  set(exports "EXPORTS\n")
  foreach(entry IN LISTS names)
    string(REPLACE " DATA" "" symbol "${entry}")
    string(APPEND imports "  ${entry}\n")
    string(APPEND exports "  ${symbol}=wbhost.${entry}\n")
  endforeach()
  file(GENERATE OUTPUT ${host_library_folder}/${name}.def CONTENT "${imports}")
  file(GENERATE OUTPUT ${host_library_folder}/${name}-exports.def CONTENT "${exports}")
  add_custom_command(
    OUTPUT ${host_library_folder}/${name}.lib
    COMMAND ${LLVM_FOLDER}/llvm-dlltool -m i386:x86-64 -d ${host_library_folder}/${name}.def
            -l ${host_library_folder}/${name}.lib
    DEPENDS ${host_library_folder}/${name}.def VERBATIM)
endfunction()

add_host_library(acad acad.exe)
add_host_library(acdb17 acdb17.dll)
add_custom_target(host_library_files
                  DEPENDS ${host_library_folder}/acad.lib ${host_library_folder}/acdb17.lib)
add_library(host_libraries INTERFACE)
target_link_libraries(host_libraries INTERFACE ${host_library_folder}/acad.lib
                      ${host_library_folder}/acdb17.lib hostapi_defaults)
add_dependencies(host_libraries host_library_files)
set(ACAD_EXPORTS ${host_library_folder}/acad-exports.def)
set(ACDB_EXPORTS ${host_library_folder}/acdb17-exports.def)
