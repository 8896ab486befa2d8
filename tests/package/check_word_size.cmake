# Configures SOURCE with a compiler that makes programs of 32 bits: it is refused, and the message says why. Nothing is
# linked, as the libraries of such programs are seldom there.

include(${CMAKE_CURRENT_LIST_DIR}/run.cmake)

file(REMOVE_RECURSE ${WORK})
run_and_fail("The library needs a 64-bit system, .*; this compiler makes programs of 32 bits" ${CMAKE_COMMAND} -S ${SOURCE}
             -B ${WORK} -G ${GENERATOR} -DCMAKE_CXX_COMPILER=${CXX} -DCMAKE_CXX_FLAGS=-m32
             -DCMAKE_TRY_COMPILE_TARGET_TYPE=STATIC_LIBRARY)
