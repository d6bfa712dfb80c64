# `interface`: the declarations in hostapi/ agree with hostapi/interface.txt, by the tables of virtual
# functions, the layouts and the inclusions that clang tells of them; the check itself tells what is
# broken; and the built module imports what the host exports, name by name, from the file that has it.

find_program(PYTHON3 NAMES python3)
if(PYTHON3)
  set(check_interface ${PYTHON3} -B ${CMAKE_SOURCE_DIR}/hostapi/check/check_interface.py
      --compiler ${CMAKE_CXX_COMPILER} --readobj ${LLVM_FOLDER}/llvm-readobj
      --nm ${LLVM_FOLDER}/llvm-nm)
  set(interface_flags ${toolchain_flags} -std=c++17 ${project_defines})
  file(GLOB interface_files CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/hostapi/*.h
       ${CMAKE_SOURCE_DIR}/hostapi/check/*.py)
  set(interface_stamp ${checks_folder}/hostapi.interface)
  add_custom_command(
    OUTPUT ${interface_stamp}
    COMMAND ${check_interface} --module $<TARGET_FILE:TessaroAcad> -- ${interface_flags}
    COMMAND ${check_interface} --self-test -- ${interface_flags}
    COMMAND ${CMAKE_COMMAND} -E touch ${interface_stamp}
    DEPENDS ${interface_files} ${CMAKE_SOURCE_DIR}/hostapi/interface.txt TessaroAcad
    COMMENT "Comparing hostapi with the host's interface" VERBATIM)
  add_custom_target(interface DEPENDS ${interface_stamp})
else()
  add_missing_check(interface python3)
endif()
