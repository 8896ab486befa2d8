# Does what README.md shows to a visitor, in a copy of the sources: the demo, the installation, and a project that links
# the library.

include(${CMAKE_CURRENT_LIST_DIR}/readme_program.cmake)

file(REMOVE_RECURSE ${WORK})
foreach(name CMakeLists.txt CMakePresets.json ccl cmake docs examples man README.md scripts tools)
  file(COPY ${repository}/${name} DESTINATION ${WORK}/fio)
endforeach()
file(READ ${repository}/README.md readme)

# The content of the block that begins with a command.
function(find_block language begin result)
  string(FIND "${readme}" "```${language}\n${begin}" position)
  if(position EQUAL -1)
    message(FATAL_ERROR "README.md has no block of ${language} that begins with ${begin}")
  endif()
  string(SUBSTRING "${readme}" ${position} -1 block)
  string(REGEX REPLACE "^```${language}\n(([^`]|`[^`])*)```.*" "\\1" block "${block}")
  set(${result} "${block}" PARENT_SCOPE)
endfunction()

# The other script of this block is what runs all tests.
find_block(sh "scripts/demo.sh" trying)
if(NOT trying MATCHES "\nscripts/check\\.sh " OR NOT EXISTS ${WORK}/fio/scripts/check.sh)
  message(FATAL_ERROR "README.md does not show how to run the tests")
endif()
run(scripts/demo.sh WORKING_DIRECTORY ${WORK}/fio)
if(NOT output MATCHES "rtl/core/alu\\.v")
  message(FATAL_ERROR "the demo does not find what it looks for")
endif()

find_block(sh "cmake --preset library" installing)
string(REPLACE "PREFIX" "${WORK}/prefix" installing "${installing}")
file(WRITE ${WORK}/fio/install.sh "${installing}")
run(sh -e install.sh WORKING_DIRECTORY ${WORK}/fio)

find_block(cmake "find_package(ccl REQUIRED)" linking)
write_readme_program(${WORK}/tool/tool.cpp)
file(WRITE ${WORK}/tool/CMakeLists.txt
     "cmake_minimum_required(VERSION 3.18)\nproject(tool LANGUAGES CXX)\nadd_executable(tool tool.cpp)\n${linking}")
run(${CMAKE_COMMAND} -S ${WORK}/tool -B ${WORK}/tool/build -G ${GENERATOR} -DCMAKE_CXX_COMPILER=${CXX}
    "-DCMAKE_PREFIX_PATH=${WORK}/prefix")
run(${CMAKE_COMMAND} --build ${WORK}/tool/build)
run_readme_program(${WORK}/tool/build/tool)
