# Builds the program of README.md in one of the WAYs that a foreign project has, and runs it. PREFIX is where the
# library was moved to after it was installed.

include(${CMAKE_CURRENT_LIST_DIR}/readme_program.cmake)

file(REMOVE_RECURSE ${WORK})
set(readme_program ${WORK}/program.cpp)
write_readme_program(${readme_program})
set(options -G ${GENERATOR} -DCMAKE_CXX_COMPILER=${CXX})
set(consumers ${CMAKE_CURRENT_LIST_DIR}/consumers)
set(include_folder "${PREFIX}/include")
file(GLOB_RECURSE package_file "${PREFIX}/*/ccl.pc")
get_filename_component(package_folder "${package_file}" DIRECTORY)
get_filename_component(library_folder "${package_folder}" DIRECTORY)

# Configures and builds the consumer of all projects, and runs its program.
function(consume way)
  run(${CMAKE_COMMAND} -S ${consumers} -B ${WORK}/build ${options} -DWAY=${way} -DPROGRAM=${readme_program} ${ARGN})
  run(${CMAKE_COMMAND} --build ${WORK}/build)
  run_readme_program(${WORK}/build/program)
endfunction()

if(WAY STREQUAL "find_package")
  consume(find_package "-DCMAKE_PREFIX_PATH=${PREFIX}")

  # Another platform of the same name may still be put before the one beside the library.
  file(GLOB platform "${library_folder}/libccl_platform.so*")
  file(COPY ${platform} DESTINATION ${WORK}/other)
  run(${CMAKE_COMMAND} -E env LD_TRACE_LOADED_OBJECTS=1 LD_LIBRARY_PATH=${WORK}/other ${WORK}/build/program)
  string(FIND "${output}" " => ${WORK}/other/libccl_platform.so" position)
  if(position EQUAL -1)
    message(FATAL_ERROR "LD_LIBRARY_PATH does not replace the platform")
  endif()

elseif(WAY STREQUAL "components")
  consume(components "-DCMAKE_PREFIX_PATH=${PREFIX}")
  run_and_fail("ccl has no component gui; its components are fio and platform" ${CMAKE_COMMAND} -S ${consumers} -B
               ${WORK}/refused ${options} -DWAY=components -DPROGRAM=${readme_program} "-DCMAKE_PREFIX_PATH=${PREFIX}"
               -DALSO=gui)

elseif(WAY STREQUAL "pkg-config" AND NOT PKG_CONFIG)
  message("left out: pkg-config is missing (Debian: pkgconf)")

elseif(WAY STREQUAL "pkg-config")
  set(pkg_config ${CMAKE_COMMAND} -E env "PKG_CONFIG_PATH=${package_folder}" ${PKG_CONFIG})
  run(${pkg_config} --cflags --libs ccl)
  separate_arguments(flags UNIX_COMMAND "${output}")
  run(${CXX} -std=c++17 ${readme_program} ${flags} "-Wl,-rpath,${library_folder}" -o ${WORK}/program)
  run_readme_program(${WORK}/program)

elseif(WAY STREQUAL "compiler")
  run(${CXX} -std=c++17 ${readme_program} "-I${include_folder}" "-L${library_folder}" -lccl_fio
      "-Wl,-rpath,${library_folder}" -o ${WORK}/program)
  run_readme_program(${WORK}/program)
  # Without the path in the program it links as well, and the loader has to be told.
  run(${CXX} -std=c++17 ${readme_program} "-I${include_folder}" "-L${library_folder}" -lccl_fio -o ${WORK}/pathless)
  run_readme_program(${WORK}/pathless "LD_LIBRARY_PATH=${library_folder}")

elseif(WAY MATCHES "^(add_subdirectory|fetch_content)$")
  consume(${WAY} -DFROM=${repository})

elseif(WAY STREQUAL "a_unity_build")
  consume(add_subdirectory -DFROM=${repository} -DCMAKE_UNITY_BUILD=ON)

elseif(WAY STREQUAL "another_package")
  # The same twice: with the library installed, and as a part of the project that exports.
  foreach(from "" ${repository})
    file(REMOVE_RECURSE ${WORK}/tool ${WORK}/first ${WORK}/build)
    run(${CMAKE_COMMAND} -S ${CMAKE_CURRENT_LIST_DIR}/exporting -B ${WORK}/tool ${options} -DFROM=${from}
        "-DCMAKE_PREFIX_PATH=${PREFIX}")
    run(${CMAKE_COMMAND} --build ${WORK}/tool)
    run(${CMAKE_COMMAND} --install ${WORK}/tool --prefix ${WORK}/first)
    file(REMOVE_RECURSE "${WORK}/second place")
    file(RENAME ${WORK}/first "${WORK}/second place")
    if(from)
      set(library_from "-Dccl_DIR=ccl_DIR-NOTFOUND") # beside the package that needs it
    else()
      set(library_from "-Dccl_DIR=${library_folder}/cmake/ccl")
    endif()
    consume(another_package "-DCMAKE_PREFIX_PATH=${WORK}/second place" ${library_from})
  endforeach()

else()
  message(FATAL_ERROR "no such way: ${WAY}")
endif()
