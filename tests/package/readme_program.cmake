# The first program of README.md, and how it is run: without LD_LIBRARY_PATH, in the folder of the design that it
# searches.

include(${CMAKE_CURRENT_LIST_DIR}/run.cmake)

get_filename_component(repository ${CMAKE_CURRENT_LIST_DIR}/../.. ABSOLUTE)
set(readme_output "lib/alu.v: Verilog HDL File")

# Writes the program to a file.
function(write_readme_program path)
  file(READ ${repository}/README.md readme)
  if(NOT readme MATCHES "\n```cpp\n([^`]*int main[^`]*)```\n")
    message(FATAL_ERROR "README.md shows no program")
  endif()
  file(WRITE "${path}" "${CMAKE_MATCH_1}")
  string(FIND "${readme}" "${readme_output}" position)
  if(position EQUAL -1)
    message(FATAL_ERROR "README.md does not show the output of its program: ${readme_output}")
  endif()
endfunction()

# Runs the program made of it, with further settings of the environment.
function(run_readme_program program)
  run(${CMAKE_COMMAND} -E env --unset=LD_LIBRARY_PATH ${ARGN} "${program}" WORKING_DIRECTORY
      ${repository}/examples/design)
  if(NOT output STREQUAL "${readme_output}\n")
    message(FATAL_ERROR "the program of README.md does not say: ${readme_output}")
  endif()
endfunction()
