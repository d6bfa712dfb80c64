# The client's interface definition, turned into its header, its identifiers and its type library.
#   tessaro_client_idl: the include path of TessaroClient.h, and the identifiers to link.

set(CLIENT_IDL ${CMAKE_SOURCE_DIR}/src/vault/TessaroClient.idl)
set(GENERATED_FOLDER ${CMAKE_BINARY_DIR}/generated)
file(MAKE_DIRECTORY ${GENERATED_FOLDER})
set(client_header ${GENERATED_FOLDER}/TessaroClient.h)
set(client_identifiers ${GENERATED_FOLDER}/TessaroClient_i.c)
set(CLIENT_TYPE_LIBRARY ${GENERATED_FOLDER}/TessaroClient.tlb)

if(MSVC)
  find_program(MIDL midl REQUIRED)
  set(compile_idl ${MIDL} /nologo /env x64 /h ${client_header} /iid ${client_identifiers}
      /tlb ${CLIENT_TYPE_LIBRARY} /out ${GENERATED_FOLDER} ${CLIENT_IDL})
  add_custom_command(OUTPUT ${client_header} ${client_identifiers} ${CLIENT_TYPE_LIBRARY}
                     COMMAND ${compile_idl} DEPENDS ${CLIENT_IDL} VERBATIM)
else()
  find_program(WIDL x86_64-w64-mingw32-widl REQUIRED)
  # Windows' own interface definitions, as Wine's development package has them.
  find_path(WINDOWS_IDL_FOLDER unknwn.idl PATHS /usr/include/wine/wine/windows
            /usr/include/wine/windows /usr/include/wine-development/wine/windows
            NO_CMAKE_FIND_ROOT_PATH REQUIRED)
  file(GLOB wine_libraries /usr/lib/*/wine/x86_64-windows /usr/lib/wine/x86_64-windows)
  find_path(STANDARD_TLB_FOLDER stdole2.tlb PATHS ${wine_libraries}
            NO_CMAKE_FIND_ROOT_PATH REQUIRED)
  set(widl ${WIDL} -m64 -I ${WINDOWS_IDL_FOLDER} -L ${STANDARD_TLB_FOLDER})
  add_custom_command(
    OUTPUT ${client_header} ${client_identifiers} ${CLIENT_TYPE_LIBRARY}
    COMMAND ${widl} -h -o ${client_header} ${CLIENT_IDL}
    COMMAND ${widl} -u -o ${client_identifiers} ${CLIENT_IDL}
    COMMAND ${widl} -t -o ${CLIENT_TYPE_LIBRARY} ${CLIENT_IDL}
    DEPENDS ${CLIENT_IDL}
    COMMENT "Translating TessaroClient.idl"
    VERBATIM)
endif()

add_custom_target(tessaro_client_files
                  DEPENDS ${client_header} ${client_identifiers} ${CLIENT_TYPE_LIBRARY})
add_library(tessaro_client_idl STATIC ${client_identifiers} ${client_header})
target_include_directories(tessaro_client_idl SYSTEM PUBLIC ${GENERATED_FOLDER})
add_dependencies(tessaro_client_idl tessaro_client_files)
