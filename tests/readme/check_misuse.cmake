# Compiles misuse.cpp by CXX with the headers of SOURCE, and compares the lines of which the compiler warns, and the
# options that it names, with the marks in the file.

set(file ${CMAKE_CURRENT_LIST_DIR}/misuse.cpp)
file(STRINGS ${file} marked REGEX "; +// [a-z-]+$")
execute_process(
  COMMAND ${CXX} -std=c++17 -Wall -Wextra -Wpedantic -fsyntax-only -fdiagnostics-color=never -I${SOURCE} ${file}
  ERROR_VARIABLE messages RESULT_VARIABLE status)
string(REGEX MATCHALL "misuse\\.cpp:[0-9]+:[0-9]+: (warning|error)[^\n]*" warnings "${messages}")
set(found)
foreach(warning IN LISTS warnings)
  if(NOT warning MATCHES ":([0-9]+):[0-9]+: warning: .*\\[-W([a-z-]+)\\]$")
    message(FATAL_ERROR "${messages}")
  endif()
  list(APPEND found "${CMAKE_MATCH_1}: ${CMAKE_MATCH_2}")
endforeach()

# The marked lines stand one below the other.
file(READ ${file} text)
list(GET marked 0 first)
string(FIND "${text}" "${first}" position)
string(SUBSTRING "${text}" 0 ${position} before)
string(REGEX MATCHALL "\n" lines "${before}")
list(LENGTH lines number)
set(expected)
foreach(mark IN LISTS marked)
  math(EXPR number "${number} + 1")
  string(REGEX REPLACE ".*// " "" option "${mark}")
  list(APPEND expected "${number}: ${option}")
endforeach()

if(NOT status EQUAL 0 OR NOT found STREQUAL expected)
  message(FATAL_ERROR "warnings: ${found}\nexpected: ${expected}\n${messages}")
endif()
