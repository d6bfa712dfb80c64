# The product: its objects, compiled once for the module and for the tests, and TessaroAcad.arx.

# Headers and libraries of the host: the genuine SDK's, or our declarations of the same interface,
# served by the workbench.
add_library(host_interface INTERFACE)
if(OBJECTARX_SDK)
  target_include_directories(host_interface SYSTEM INTERFACE ${OBJECTARX_SDK}/inc
                             ${OBJECTARX_SDK}/inc-x64)
  foreach(library acad acdb17 rxapi acedapi)
    find_library(OBJECTARX_${library} ${library} PATHS ${OBJECTARX_SDK}/lib-x64
                 NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH REQUIRED)
    target_link_libraries(host_interface INTERFACE ${OBJECTARX_${library}})
  endforeach()
else()
  target_include_directories(host_interface INTERFACE ${CMAKE_SOURCE_DIR}/hostapi)
endif()

collect_sources(module_sources src)
set(module_resources ${module_sources})
list(FILTER module_resources INCLUDE REGEX "\\.(rc|def)$")
list(FILTER module_sources EXCLUDE REGEX "\\.(rc|def)$")
if(OBJECTARX_SDK)
  # The SDK's rxapi library brings its own acrxGetApiVersion.
  list(FILTER module_sources EXCLUDE REGEX "/ApiVersion\\.cpp$")
endif()

add_library(tessaro_objects OBJECT ${module_sources})
project_target(tessaro_objects)
target_include_directories(tessaro_objects PUBLIC ${CMAKE_SOURCE_DIR}/src)
target_link_libraries(tessaro_objects PUBLIC host_interface comsupp tessaro_client_idl
                      ${WINDOWS_LIBRARIES})

add_library(TessaroAcad MODULE ${module_resources})
project_target(TessaroAcad)
arx_target(TessaroAcad)
target_include_directories(TessaroAcad PRIVATE ${CMAKE_SOURCE_DIR}/src)
set_source_files_properties(${CMAKE_SOURCE_DIR}/src/ui/TessaroAcad.rc PROPERTIES
  OBJECT_DEPENDS ${CMAKE_SOURCE_DIR}/src/ui/refresh.bmp)
target_link_libraries(TessaroAcad PRIVATE tessaro_objects)
if(NOT OBJECTARX_SDK)
  add_subdirectory(hostapi/defaults)
  include(HostLibraries)
  target_link_libraries(TessaroAcad PRIVATE host_libraries)
endif()
