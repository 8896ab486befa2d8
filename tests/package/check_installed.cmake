# Installs BUILD to a prefix with a blank in its name, moves it, and uses the package in each of the ways that a foreign
# project has: find_package, pkg-config and the bare compiler.

include(${CMAKE_CURRENT_LIST_DIR}/run.cmake)

file(REMOVE_RECURSE ${WORK})
run(${CMAKE_COMMAND} --install ${BUILD} --prefix "${WORK}/first place")
file(RENAME "${WORK}/first place" "${WORK}/second place")
set(prefix "${WORK}/second place")

# What stands there is what the list says, and nothing private.
file(GLOB_RECURSE headers RELATIVE "${prefix}/include" "${prefix}/include/*")
list(SORT headers)
file(STRINGS ${CMAKE_CURRENT_LIST_DIR}/installed_headers.txt expected_headers)
if(NOT headers STREQUAL expected_headers)
  message(SEND_ERROR "installed headers: ${headers}")
endif()

run(${CMAKE_COMMAND} -S ${CONSUMER} -B ${WORK}/found -G ${GENERATOR} "-DCMAKE_PREFIX_PATH=${prefix}"
    -DCMAKE_CXX_COMPILER=${CXX})
run(${CMAKE_COMMAND} --build ${WORK}/found)
run(${WORK}/found/consumer)

file(GLOB_RECURSE package_file "${prefix}/*/ccl.pc")
cmake_path(GET package_file PARENT_PATH package_folder)
execute_process(
  COMMAND ${CMAKE_COMMAND} -E env "PKG_CONFIG_PATH=${package_folder}" pkg-config --cflags --libs ccl
  OUTPUT_VARIABLE flags COMMAND_ERROR_IS_FATAL ANY)
separate_arguments(flags UNIX_COMMAND "${flags}")
cmake_path(GET package_folder PARENT_PATH library_folder)
run(${CXX} -std=c++17 ${CONSUMER}/consumer.cpp ${flags} -o ${WORK}/configured)
run(${CMAKE_COMMAND} -E env "LD_LIBRARY_PATH=${library_folder}" ${WORK}/configured)
run(${CXX} -std=c++17 ${CONSUMER}/consumer.cpp "-I${prefix}/include" "-L${library_folder}" -lccl_fio -lccl_platform -o
    ${WORK}/bare)
run(${CMAKE_COMMAND} -E env "LD_LIBRARY_PATH=${library_folder}" ${WORK}/bare)

file(GLOB library "${library_folder}/libccl_fio.so")
set(LIBRARY "${library}")
set(INSTALLED ON)
include(${CMAKE_CURRENT_LIST_DIR}/check_elf.cmake)
