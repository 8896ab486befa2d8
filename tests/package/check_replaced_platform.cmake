# Builds the library as part of a project that brings a platform of its own, and runs that project's program.

execute_process(
  COMMAND ${CMAKE_COMMAND} -S ${SOURCE} -B ${WORK} -G ${GENERATOR} -DCMAKE_CXX_COMPILER=${CXX}
          -DREPOSITORY=${REPOSITORY} RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE output)
if(status EQUAL 0)
  execute_process(COMMAND ${CMAKE_COMMAND} --build ${WORK} RESULT_VARIABLE status OUTPUT_VARIABLE output
                  ERROR_VARIABLE output)
endif()
if(status EQUAL 0)
  execute_process(COMMAND ${WORK}/program RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE output)
endif()
if(NOT status EQUAL 0)
  message(FATAL_ERROR "${output}")
endif()

execute_process(COMMAND ${READELF} -dW ${WORK}/ccl/ccl/libccl_fio.so OUTPUT_VARIABLE dynamic COMMAND_ERROR_IS_FATAL ANY)
if(NOT dynamic MATCHES "librecording_platform" OR dynamic MATCHES "libccl_platform")
  message(FATAL_ERROR "the library does not stand on the recording platform alone:\n${dynamic}")
endif()
