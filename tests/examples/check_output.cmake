# Runs PROGRAM with ARGUMENTS in FOLDER and compares what it prints with the file EXPECTED, which holds standard output,
# and behind a line "status N" what is on standard error. With OUTPUT_ALONE there is no such line, and nothing behind it.
# With UPDATE the file is written anew.

if(REMOVE)
  file(REMOVE_RECURSE ${REMOVE})
endif()
separate_arguments(arguments UNIX_COMMAND "${ARGUMENTS}")
execute_process(
  COMMAND ${PROGRAM} ${arguments}
  WORKING_DIRECTORY ${FOLDER}
  OUTPUT_VARIABLE output
  ERROR_VARIABLE errors
  RESULT_VARIABLE status)
set(whole "${output}status ${status}\n${errors}")
if(OUTPUT_ALONE)
  string(REGEX REPLACE "status 0\n$" "" whole "${whole}")
endif()
if(UPDATE)
  file(WRITE ${EXPECTED} "${whole}")
endif()
file(READ ${EXPECTED} expected)
if(NOT whole STREQUAL expected)
  message(FATAL_ERROR "came out:\n${whole}\nexpected:\n${expected}")
endif()
