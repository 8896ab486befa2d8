# Compares the binary interface of each library, FIO and PLATFORM, with its description in the folder `interface`. What
# was added is printed; what was changed or removed fails, until the description is renewed with UPDATE.

include(${CMAKE_CURRENT_LIST_DIR}/run.cmake)

if(NOT ABIDW OR NOT ABIDIFF)
  message("left out: abidw and abidiff are missing (Debian: abigail-tools)")
  return()
endif()

foreach(library ${FIO} ${PLATFORM})
  get_filename_component(name ${library} NAME_WE)
  set(described ${CMAKE_CURRENT_LIST_DIR}/interface/${name}.abi)
  set(found ${WORK}/${name}.abi)
  file(MAKE_DIRECTORY ${WORK})
  # No sizes of code and no lines of sources, which are not the interface.
  run(${ABIDW} --suppressions ${CMAKE_CURRENT_LIST_DIR}/interface.abignore --exported-interfaces-only
      --drop-private-types --headers-dir ${SOURCE}/ccl --drop-undefined-syms --no-corpus-path --no-comp-dir-path
      --no-show-locs --no-architecture --no-elf-needed --no-parameter-names --type-id-style hash --out-file ${found} ${library})
  if(UPDATE)
    file(COPY ${found} DESTINATION ${CMAKE_CURRENT_LIST_DIR}/interface)
    continue()
  endif()
  execute_process(COMMAND ${ABIDIFF} ${described} ${found} OUTPUT_VARIABLE report)
  message("${name}: ${report}")
  execute_process(COMMAND ${ABIDIFF} --no-added-syms ${described} ${found} OUTPUT_QUIET RESULT_VARIABLE status)
  if(NOT status EQUAL 0)
    message(SEND_ERROR "the binary interface of ${name} is not the described one; docs/abi.md says what to do")
  endif()
endforeach()
