# Checks what the loader will make of LIBRARY: its name, what it needs, what it protects, and that its tables stand in
# read-only memory that needs no relocation.

function(output_of result)
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

output_of(dynamic ${READELF} -dW ${LIBRARY})
expect("${dynamic}" "SONAME[^\n]*\\[libccl_fio\\.so\\.${SOVERSION}\\]")
expect("${dynamic}" "NEEDED[^\n]*\\[libccl_platform\\.so\\.${SOVERSION}\\]")
expect("${dynamic}" "NEEDED[^\n]*\\[libboost_filesystem\\.so")
expect("${dynamic}" "BIND_NOW|FLAGS_1[^\n]* NOW")
refuse("${dynamic}" "TEXTREL")
if(INSTALLED AND RUNPATH) # as RPATH it would go before LD_LIBRARY_PATH
  refuse("${dynamic}" "\\(RPATH\\)[^\n]*")
  string(FIND "${dynamic}" "Library runpath: [${RUNPATH}]\n" position)
  if(position EQUAL -1)
    message(SEND_ERROR "expected the RUNPATH ${RUNPATH}, but found:\n${dynamic}")
  endif()
elseif(INSTALLED)
  refuse("${dynamic}" "R(UN)?PATH[^\n]*")
endif()
output_of(segments ${READELF} -lW ${LIBRARY})
expect("${segments}" "GNU_RELRO")
refuse("${segments}" "GNU_STACK[^\n]* RWE")

# A table in .rodata has no relocation: the section is never written to.
output_of(symbols ${NM} -C ${LIBRARY})
foreach(table fio_file_type_datas fio_extension_type_datas fio_extension_keys fio_editor_type_to_string fio_file_type_traits_to_string
              fio_extension_type_traits_to_string)
  expect("${symbols}" " [rR] fio_tables::${table}\n")
endforeach()
refuse("${symbols}" " [^rR] fio_tables::[^\n]*")
string(REGEX MATCHALL " R (FIO_CLSID_NULL|VFC_CLSID_[A-Z0-9_]+)\n" constants "${symbols}")
list(LENGTH constants count)
if(NOT count EQUAL 157)
  message(SEND_ERROR "157 class identifiers are read-only data, and not ${count}")
endif()

# Each unit has one start-up function, in this order, and nothing else runs when the library is loaded.
output_of(by_address ${NM} -n ${LIBRARY})
string(REGEX MATCHALL "_GLOBAL__sub_I_[^\n]*" starters "${by_address}")
set(units file_sys path find file_bin file_ext_type_info file_type_info extension_type_info iterator clsid)
list(TRANSFORM units REPLACE "(.+)" "_GLOBAL__sub_I_fio_\\1.cpp")
if(NOT "${starters}" STREQUAL "${units}")
  message(SEND_ERROR "start-up functions: ${starters}")
endif()
output_of(sections ${READELF} -SW ${LIBRARY})
if(COMPILER STREQUAL GNU) # another compiler starts the statics of Boost's templates by themselves
  expect("${sections}" " \\.init_array +INIT_ARRAY +[0-9a-f]+ [0-9a-f]+ 000050 ") # nine, and that of the C runtime
endif()

# The assertions of the Boost headers are compiled in.
file(STRINGS ${LIBRARY} boost_headers REGEX "boost/filesystem/directory\\.hpp")
if(NOT boost_headers)
  message(SEND_ERROR "no assertion of a Boost header is in the library")
endif()

# What the platform offers is taken from outside, all of it by name.
output_of(undefined ${NM} -DC --undefined-only ${LIBRARY})
foreach(operation "MEM_INITIALIZER::MEM_INITIALIZER\\(" "MEM_INITIALIZER::~MEM_INITIALIZER\\(" "mem_msg_local_vdebug\\("
                  "MEM_DETAIL::stl_raw_sprintf\\(" "stl_tolower\\(" "strtok_s\\(" "err_report_internal_error\\("
                  "osi_open\\(" "osi_fopen\\(" "osi_chmod\\(" "osi_getcwd\\(" "osi_mkdir\\(" "osi_rmdir\\("
                  "osi_chdir\\(" "osi_status\\(" "osi_exists\\(" "osi_get_unc_full_path\\(" "osi_path_get_data\\("
                  "osi_path_free\\(")
  expect("${undefined}" " U ${operation}")
endforeach()
