# Configures SOURCE as on a machine that has a compiler, CMake and Boost alone: what is left out is said in a line each
# with the package that brings it, and an error if it was asked for by name.

include(${CMAKE_CURRENT_LIST_DIR}/run.cmake)

file(REMOVE_RECURSE ${WORK})
set(configure ${CMAKE_COMMAND} -S ${SOURCE} -B ${WORK} -G ${GENERATOR} -DCMAKE_CXX_COMPILER=${CXX})
foreach(package GTest CLI11 nlohmann_json fmt TCL Qt6Widgets Python pybind11 benchmark Doxygen)
  list(APPEND configure -DCMAKE_DISABLE_FIND_PACKAGE_${package}=ON)
endforeach()

run(${configure})
string(REGEX MATCHALL "Left out: [^\n]*" left_out "${output}")
set(tools_need "CLI11 (Debian: libcli11-dev), nlohmann_json (Debian: nlohmann-json3-dev), fmt (Debian: libfmt-dev)")
set(python_needs "Python 3.11 (Debian: python3-dev), pybind11 (Debian: pybind11-dev)")
set(expected "Left out: the tests, which need GTest (Debian: libgtest-dev)"
             "Left out: the tools, which need ${tools_need}"
             "Left out: the Tcl commands, which need TCL (Debian: tcl-dev)"
             "Left out: the examples with a window, which need Qt6Widgets (Debian: qt6-base-dev)"
             "Left out: the bindings for Python, which need ${python_needs}")
if(NOT left_out STREQUAL expected)
  message(FATAL_ERROR "left out, but not what was expected: ${left_out}")
endif()

run_and_fail("CCL_BUILD_TESTS is ON, and the tests need GTest \\(Debian: libgtest-dev\\)" ${configure}
             -DCCL_BUILD_TESTS=ON)
run_and_fail("CCL_BUILD_TOOLS is ON, and the tools need CLI11 \\(Debian: libcli11-dev\\), nlohmann_json" ${configure}
             -DCCL_BUILD_TESTS=OFF -DCCL_BUILD_TOOLS=ON)
run_and_fail("CCL_BUILD_TCL is ON, and the Tcl commands need TCL \\(Debian: tcl-dev\\)" ${configure}
             -DCCL_BUILD_TOOLS=OFF -DCCL_BUILD_TCL=ON)
run_and_fail("CCL_BUILD_PYTHON is ON, and the bindings for Python need Python 3.11 \\(Debian: python3-dev\\), pybind11"
             ${configure} -DCCL_BUILD_TCL=OFF -DCCL_BUILD_PYTHON=ON)
run_and_fail("CCL_BUILD_BENCHMARKS is ON, and the benchmarks need benchmark \\(Debian: libbenchmark-dev\\)"
             ${configure} -DCCL_BUILD_PYTHON=OFF -DCCL_BUILD_BENCHMARKS=ON)
run_and_fail("needs Boost 1.74 or later \\(Debian: libboost-dev, libboost-filesystem-dev\\)" ${configure}
             -DCCL_BUILD_BENCHMARKS=OFF -DCMAKE_DISABLE_FIND_PACKAGE_Boost=ON)
