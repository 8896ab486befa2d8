# Fails when docs/operations.md leaves out an operation that the library exports, or has one that it does not.
#
# Needs SOURCE_DIR, the root of the repository, and CXXFILT, the program c++filt.

cmake_minimum_required(VERSION 3.25)

# What serves an operation that the page has: the members behind iterators, clones and values of errors.
set(left_out
    "^(typeinfo|vtable|VFC_CLSID_|FIO_CLSID_|FIO::ERRC::|fio_empty_result_value)|::~|_IMPL::|::increment$|::update_entry_")

set(symbols ${SOURCE_DIR}/tests/package/exported_symbols.txt)
execute_process(COMMAND ${CXXFILT} INPUT_FILE ${symbols} OUTPUT_VARIABLE exported COMMAND_ERROR_IS_FATAL ANY)
string(REGEX REPLACE "\n$" "" exported "${exported}")
string(REPLACE "[abi:cxx11]" "" exported "${exported}")
string(REPLACE ";" "" exported "${exported}")
string(REPLACE "[]" "@" exported "${exported}") # a list does not survive brackets
string(REPLACE "\n" ";" exported "${exported}")
list(TRANSFORM exported REPLACE "^[A-Za-z] " "")
list(TRANSFORM exported REPLACE "\\(.*" "")
list(TRANSFORM exported REPLACE "operator std::.*" "operator std::string")
list(FILTER exported EXCLUDE REGEX "${left_out}")
list(REMOVE_DUPLICATES exported)
list(LENGTH exported count)
if(count LESS 100)
  message(SEND_ERROR "only ${count} operations in ${symbols}")
endif()

file(READ ${SOURCE_DIR}/docs/operations.md page)
string(REPLACE "[]" "@" page "${page}")
string(REPLACE ";" "," page "${page}")
string(REGEX MATCHALL "`(FIO_|fio_)[^`]*`" listed "${page}")
list(TRANSFORM listed REPLACE "`" "")
list(REMOVE_DUPLICATES listed)

foreach(operation IN LISTS exported)
  if(NOT operation IN_LIST listed)
    message(SEND_ERROR "docs/operations.md leaves out ${operation}")
  endif()
endforeach()
foreach(operation IN LISTS listed)
  if(NOT operation IN_LIST exported)
    message(SEND_ERROR "docs/operations.md has ${operation}, which the library does not export")
  endif()
endforeach()
