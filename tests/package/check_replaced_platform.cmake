# Builds the library as part of a project that brings a platform of its own, runs that project's program, and does the
# same with what that project installs.

include(${CMAKE_CURRENT_LIST_DIR}/run.cmake)

set(options -G ${GENERATOR} -DCMAKE_CXX_COMPILER=${CXX})
run(${CMAKE_COMMAND} -S ${SOURCE}/replaced_platform -B ${WORK}/built ${options} -DREPOSITORY=${REPOSITORY})
run(${CMAKE_COMMAND} --build ${WORK}/built)
run(${WORK}/built/program)
run(${READELF} -dW ${WORK}/built/ccl/ccl/libccl_fio.so)
if(NOT output MATCHES "librecording_platform" OR output MATCHES "libccl_platform")
  message(FATAL_ERROR "the library does not stand on the recording platform alone:\n${output}")
endif()

file(REMOVE_RECURSE ${WORK}/installed)
run(${CMAKE_COMMAND} --install ${WORK}/built --prefix ${WORK}/installed)
run(${CMAKE_COMMAND} -S ${SOURCE}/replaced_consumer -B ${WORK}/found ${options}
    -DCMAKE_PREFIX_PATH=${WORK}/installed -DPLATFORM=${WORK}/built/librecording_platform.so
    -DSOURCE=${SOURCE}/replaced_platform -DREPOSITORY=${REPOSITORY})
run(${CMAKE_COMMAND} --build ${WORK}/found)
run(${WORK}/found/program)

# A platform that would be copied into the library is refused.
run_and_fail("name a shared library" ${CMAKE_COMMAND} -S ${SOURCE}/replaced_platform -B ${WORK}/static ${options}
             -DREPOSITORY=${REPOSITORY} -DKIND=STATIC)
