# The stand-in host and the stand-in client.

# JSON's header sits in the build machine's own include folder, where a cross compiler must not
# look; a folder with nothing else leads to it.
find_path(JSON_FOLDER nlohmann/json.hpp PATHS /usr/include NO_CMAKE_FIND_ROOT_PATH REQUIRED)
file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/json)
file(CREATE_LINK ${JSON_FOLDER}/nlohmann ${CMAKE_BINARY_DIR}/json/nlohmann SYMBOLIC)

# A library of the workbench exports every function it defines.
function(export_everything target)
  set_target_properties(${target} PROPERTIES WINDOWS_EXPORT_ALL_SYMBOLS ON)
endfunction()

collect_sources(core_sources workbench/core)
# The result-code table is the module's; both sides name a code alike.
add_library(wbcore SHARED ${core_sources} ${CMAKE_SOURCE_DIR}/src/vault/ResultCodeTable.cpp)
project_target(wbcore)
export_everything(wbcore)
target_include_directories(wbcore PUBLIC ${CMAKE_SOURCE_DIR}/workbench ${CMAKE_SOURCE_DIR}/src)
target_include_directories(wbcore SYSTEM PRIVATE ${CMAKE_BINARY_DIR}/json)
target_link_libraries(wbcore PUBLIC ${WINDOWS_LIBRARIES} PRIVATE comsupp)

collect_sources(host_sources workbench/host)
set(program_sources ${host_sources})
list(FILTER program_sources INCLUDE REGEX "/acad\\.cpp$")
list(FILTER host_sources EXCLUDE REGEX "/acad\\.cpp$")
add_library(wbhost SHARED ${host_sources})
project_target(wbhost)
precompile_common_headers(wbhost)
# The host's data is imported by everybody else.
target_compile_definitions(wbhost PRIVATE HOSTAPI_IMPLEMENTATION)
export_everything(wbhost)
target_include_directories(wbhost PUBLIC ${CMAKE_SOURCE_DIR}/workbench)
target_link_libraries(wbhost PUBLIC wbcore host_interface
                      PRIVATE hostapi_defaults comsupp tessaro_client_idl)

collect_sources(client_sources workbench/client)
add_library(TessaroClient SHARED ${client_sources})
project_target(TessaroClient)
precompile_common_headers(TessaroClient)
target_link_libraries(TessaroClient PRIVATE wbcore comsupp tessaro_client_idl)
# The type library and the default texts travel inside, as resources.
target_include_directories(TessaroClient PRIVATE ${GENERATED_FOLDER})
set(client_resources ${client_sources})
list(FILTER client_resources INCLUDE REGEX "\\.rc$")
file(GLOB client_texts CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/workbench/client/*.txt)
set_source_files_properties(${client_resources} PROPERTIES
  OBJECT_DEPENDS "${CLIENT_TYPE_LIBRARY};${client_texts}")

# A program of the workbench, which loads the module and the client by their names.
function(add_workbench_program target)
  add_executable(${target} ${ARGN})
  project_target(${target})
  target_link_libraries(${target} PRIVATE wbhost)
  add_dependencies(${target} TessaroAcad TessaroClient acad acdb17)
endfunction()

# The host's own files, as the module names them. A program that isn't acad.exe loads that as well
# when it loads the module; the exports lead to the same wbhost.dll.
add_executable(acad ${program_sources})
project_target(acad)
target_link_options(acad PRIVATE "SHELL:-Xlinker \"/def:${ACAD_EXPORTS}\"")
set_target_properties(acad PROPERTIES LINK_DEPENDS ${ACAD_EXPORTS})
target_link_libraries(acad PRIVATE wbhost)
add_dependencies(acad TessaroAcad TessaroClient acdb17)
add_library(acdb17 SHARED ${ACDB_EXPORTS})
set_target_properties(acdb17 PROPERTIES LINKER_LANGUAGE CXX)
add_dependencies(acdb17 wbhost)

# Fails every call that the module makes, one after the other.
collect_sources(sweep_sources workbench/sweep)
add_workbench_program(sweep ${sweep_sources})

# Random user sessions.
collect_sources(session_sources workbench/sessions)
add_workbench_program(sessions ${session_sources})
