# Compares the version that PROGRAM prints from the headers with those of the package in BUILD.

include(${BUILD}/ccl-config-version.cmake)
string(REGEX MATCH "^([0-9]+)\\.([0-9]+)\\.([0-9]+)$" version "${PACKAGE_VERSION}")
math(EXPR number "${CMAKE_MATCH_1} * 10000 + ${CMAKE_MATCH_2} * 100 + ${CMAKE_MATCH_3}")
execute_process(COMMAND ${PROGRAM} OUTPUT_VARIABLE printed COMMAND_ERROR_IS_FATAL ANY)
if(NOT printed STREQUAL "${version} ${number}\n")
  message(SEND_ERROR "the headers have version ${printed}, and the package ${PACKAGE_VERSION}")
endif()
file(STRINGS ${BUILD}/ccl.pc package_file REGEX "^Version: ")
if(NOT package_file STREQUAL "Version: ${version}")
  message(SEND_ERROR "the file for pkg-config says ${package_file}, and the package ${PACKAGE_VERSION}")
endif()
