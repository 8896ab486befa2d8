# Runs PROGRAM with ARGUMENTS in FOLDER and compares what it prints with the file EXPECTED, which holds standard output,
# and behind a line "status N" what is on standard error. With UPDATE the file is written anew.

separate_arguments(arguments UNIX_COMMAND "${ARGUMENTS}")
execute_process(
  COMMAND ${PROGRAM} ${arguments}
  WORKING_DIRECTORY ${FOLDER}
  OUTPUT_VARIABLE output
  ERROR_VARIABLE errors
  RESULT_VARIABLE status)
set(whole "${output}status ${status}\n${errors}")
if(UPDATE)
  file(WRITE ${EXPECTED} "${whole}")
endif()
file(READ ${EXPECTED} expected)
if(NOT whole STREQUAL expected)
  message(FATAL_ERROR "came out:\n${whole}\nexpected:\n${expected}")
endif()
