# Prints how many lines the compiler reads for a public header, and fails where one has become heavier than its limit.
# The limits are those of one compiler: another one brings a standard library of its own.

set(limit_of_fio_path 37504)
set(limit_of_fio_file_sys 42000)
set(limit_of_fio 60000)

set(heavy)
foreach(header fio_path fio_file_sys fio)
  execute_process(COMMAND ${CXX} -std=c++17 -E -P -I${REPOSITORY} -x c++ ${REPOSITORY}/ccl/fio/${header}.h
                  COMMAND wc -l
                  OUTPUT_VARIABLE lines OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  message("ccl/fio/${header}.h: ${lines} lines, at most ${limit_of_${header}}")
  if(lines GREATER limit_of_${header})
    list(APPEND heavy ccl/fio/${header}.h)
  endif()
endforeach()
if(heavy)
  message(FATAL_ERROR "too heavy: ${heavy}")
endif()
