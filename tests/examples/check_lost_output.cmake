# Runs PROGRAM with ARGUMENTS in FOLDER, once with a full device and once with nothing in the place of standard output,
# and wants a failure with a word of it on standard error.

separate_arguments(arguments UNIX_COMMAND "${ARGUMENTS}")
foreach(output ">/dev/full" ">&-")
  if(REMOVE)
    file(REMOVE_RECURSE ${REMOVE})
  endif()
  execute_process(
    COMMAND sh -c "exec \"$@\" ${output}" sh ${PROGRAM} ${arguments}
    WORKING_DIRECTORY ${FOLDER}
    ERROR_VARIABLE errors
    RESULT_VARIABLE status)
  if(status EQUAL 0 OR NOT errors MATCHES ": standard output cannot be written\n$")
    message(FATAL_ERROR "${output}: status ${status}\n${errors}")
  endif()
endforeach()
