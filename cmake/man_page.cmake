# Installs a manual page, compressed where Debian wants it so.
function(ccl_install_man_page page component)
  get_filename_component(name ${page} NAME)
  get_filename_component(section ${page} LAST_EXT)
  string(REPLACE . man section ${section})
  if(CCL_DEBIAN_FILES)
    execute_process(
      COMMAND gzip -9n ${page} --force --stdout
      OUTPUT_FILE ${CMAKE_CURRENT_BINARY_DIR}/${name}.gz COMMAND_ERROR_IS_FATAL ANY)
    set(page ${CMAKE_CURRENT_BINARY_DIR}/${name}.gz)
  endif()
  install(FILES ${page} DESTINATION ${CMAKE_INSTALL_MANDIR}/${section} COMPONENT ${component})
endfunction()
