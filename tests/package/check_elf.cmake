# Checks what the loader will make of LIBRARY: its name, what it needs, what it protects, and that its tables stand in
# read-only memory that needs no relocation.

function(run result)
  execute_process(COMMAND ${ARGN} OUTPUT_VARIABLE output COMMAND_ERROR_IS_FATAL ANY)
  set(${result} "${output}" PARENT_SCOPE)
endfunction()

function(expect text pattern)
  if(NOT "${text}" MATCHES "${pattern}")
    message(SEND_ERROR "expected, but not there: ${pattern}")
  endif()
endfunction()

function(refuse text pattern)
  if("${text}" MATCHES "${pattern}")
    message(SEND_ERROR "there, but not expected: ${CMAKE_MATCH_0}")
  endif()
endfunction()

run(dynamic ${READELF} -dW ${LIBRARY})
expect("${dynamic}" "SONAME[^\n]*\\[libccl_fio\\.so\\.${SOVERSION}\\]")
expect("${dynamic}" "NEEDED[^\n]*\\[libccl_platform\\.so\\.${SOVERSION}\\]")
expect("${dynamic}" "NEEDED[^\n]*\\[libboost_filesystem\\.so")
expect("${dynamic}" "BIND_NOW|FLAGS_1[^\n]* NOW")
refuse("${dynamic}" "TEXTREL")
if(INSTALLED)
  refuse("${dynamic}" "RPATH[^\n]*|RUNPATH[^\n]*")
endif()
run(segments ${READELF} -lW ${LIBRARY})
expect("${segments}" "GNU_RELRO")
refuse("${segments}" "GNU_STACK[^\n]* RWE")

# A table in .rodata has no relocation: the section is never written to.
run(symbols ${NM} -C ${LIBRARY})
foreach(table fio_file_type_datas rows::extensions fio_editor_type_to_string fio_file_type_traits_to_string
              fio_extension_type_traits_to_string)
  expect("${symbols}" " [rR] fio_tables::${table}\n")
endforeach()
refuse("${symbols}" " [^rR] fio_tables::[^\n]*")
string(REGEX MATCHALL " R (FIO_CLSID_NULL|VFC_CLSID_[A-Z0-9_]+)\n" constants "${symbols}")
list(LENGTH constants count)
if(NOT count EQUAL 157)
  message(SEND_ERROR "157 class identifiers are read-only data, and not ${count}")
endif()

# What the platform offers is taken from outside, all of it by name.
run(undefined ${NM} -DC --undefined-only ${LIBRARY})
foreach(operation "MEM_INITIALIZER::MEM_INITIALIZER\\(" "MEM_INITIALIZER::~MEM_INITIALIZER\\(" "mem_msg_local_vdebug\\("
                  "MEM_DETAIL::stl_raw_sprintf\\(" "stl_tolower\\(" "strtok_s\\(" "err_report_internal_error\\("
                  "osi_open\\(" "osi_fopen\\(" "osi_chmod\\(" "osi_getcwd\\(" "osi_mkdir\\(" "osi_rmdir\\("
                  "osi_chdir\\(" "osi_status\\(" "osi_exists\\(" "osi_get_unc_full_path\\(" "osi_path_get_data\\("
                  "osi_path_free\\(")
  expect("${undefined}" " U ${operation}")
endforeach()
