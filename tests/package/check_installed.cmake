# Installs BUILD to a prefix with a blank in its name, moves it to PREFIX, and looks at what stands there.

include(${CMAKE_CURRENT_LIST_DIR}/run.cmake)

file(REMOVE_RECURSE "${PREFIX}" "${PREFIX} at first")
run(${CMAKE_COMMAND} --install ${BUILD} --prefix "${PREFIX} at first")
file(RENAME "${PREFIX} at first" "${PREFIX}")

# The headers are what the list says, and nothing private.
file(GLOB_RECURSE headers RELATIVE "${PREFIX}/include" "${PREFIX}/include/*")
list(SORT headers)
file(STRINGS ${CMAKE_CURRENT_LIST_DIR}/installed_headers.txt expected_headers)
if(NOT headers STREQUAL expected_headers)
  message(SEND_ERROR "installed headers: ${headers}")
endif()

# A program that uses both libraries.
run(${CMAKE_COMMAND} -S ${CMAKE_CURRENT_LIST_DIR}/consumers -B ${WORK} -G ${GENERATOR} -DCMAKE_CXX_COMPILER=${CXX}
    -DWAY=find_package -DALSO=ccl::platform -DPROGRAM=${CMAKE_CURRENT_LIST_DIR}/consumers/both_libraries.cpp
    "-DCMAKE_PREFIX_PATH=${PREFIX}")
run(${CMAKE_COMMAND} --build ${WORK})
run(${CMAKE_COMMAND} -E env --unset=LD_LIBRARY_PATH ${WORK}/program)

file(GLOB LIBRARY "${PREFIX}/lib*/libccl_fio.so" "${PREFIX}/lib*/*/libccl_fio.so")
set(INSTALLED ON)
include(${CMAKE_CURRENT_LIST_DIR}/check_elf.cmake)
