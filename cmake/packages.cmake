# The Debian packages, one for each component of the installation. scripts/package.sh builds them.

set(abi ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})
set(ccl_package_platform libccl-platform${abi})
set(ccl_package_fio libccl-fio${abi})
set(ccl_package_development libccl-fio-dev)
set(ccl_package_documentation libccl-fio-doc)
set(ccl_package_tools ccl-fio-tools)
set(ccl_package_tcl tcl-ccl-fio)
set(ccl_package_python python3-ccl-fio)

set(CPACK_COMPONENTS_ALL platform fio development)
if(CCL_BUILD_DOCS)
  list(APPEND CPACK_COMPONENTS_ALL documentation)
endif()
if(CCL_BUILD_TOOLS)
  list(APPEND CPACK_COMPONENTS_ALL tools)
endif()
if(CCL_BUILD_TCL)
  list(APPEND CPACK_COMPONENTS_ALL tcl)
endif()
if(CCL_BUILD_PYTHON)
  list(APPEND CPACK_COMPONENTS_ALL python)
  # A module in C++ is for one version of Python.
  find_package(Python 3.11 REQUIRED COMPONENTS Interpreter Development.Module)
  math(EXPR next "${Python_VERSION_MINOR} + 1")
  set(CPACK_DEBIAN_PYTHON_PACKAGE_DEPENDS "python3 (>= 3.${Python_VERSION_MINOR}~), python3 (<< 3.${next}~)")
endif()
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME ccl)
set(CPACK_PACKAGE_CONTACT "ccl maintainers <maintainers@example.com>" CACHE STRING "Who maintains the packages")
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")

# The first line of a description is the summary of the package, and there is none for all of them.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")
set(summary "file layer of an electronic design automation suite")
set(about
    "The library has paths, file operations, search over lists of directories,
the vocabulary of the suite's file types, and binary streams.
")
foreach(component IN LISTS CPACK_COMPONENTS_ALL)
  string(TOUPPER ${component} name)
  set(CPACK_DEBIAN_${name}_PACKAGE_NAME ${ccl_package_${component}})
endforeach()

foreach(name PLATFORM FIO)
  set(CPACK_DEBIAN_${name}_PACKAGE_SECTION libs)
  set(CPACK_DEBIAN_${name}_PACKAGE_SHLIBDEPS ON)
  set(CPACK_DEBIAN_${name}_DEBUGINFO_PACKAGE ON)
  set(CPACK_DEBIAN_${name}_PACKAGE_CONTROL_EXTRA ${PROJECT_SOURCE_DIR}/cmake/debian/triggers)
endforeach()
set(CPACK_DEBIAN_TOOLS_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_TOOLS_PACKAGE_SHLIBDEPS ON)
# The libraries find each other here before they are installed anywhere.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/ccl)

set(CPACK_COMPONENT_PLATFORM_DESCRIPTION
    "platform of the file layer of an electronic design automation suite
${about}
This package holds the layer between the library and the operating system.")
set(CPACK_COMPONENT_FIO_DESCRIPTION "${summary}
${about}
This package holds the library.")
set(CPACK_COMPONENT_FIO_DEPENDS platform)
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION
    "${summary} (development)
${about}
This package holds the headers, and what CMake and pkg-config need.")
set(CPACK_COMPONENT_DEVELOPMENT_DEPENDS fio platform)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "libboost-dev (>= 1.74)")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SUGGESTS ${ccl_package_documentation})
set(CPACK_COMPONENT_DOCUMENTATION_DESCRIPTION
    "${summary} (documentation)
${about}
This package holds the reference of the headers as web pages.")
set(CPACK_DEBIAN_DOCUMENTATION_PACKAGE_SECTION doc)
set(CPACK_DEBIAN_DOCUMENTATION_PACKAGE_ARCHITECTURE all)
set(CPACK_COMPONENT_TOOLS_DESCRIPTION
    "command on the file layer of an electronic design automation suite
${about}
This package holds ccl-fio, which finds names over search paths, says what
files are, takes paths apart, and copies and cleans trees.")
set(CPACK_COMPONENT_TOOLS_DEPENDS fio platform)
set(CPACK_COMPONENT_TCL_DESCRIPTION
    "Tcl commands on the file layer of an electronic design automation suite
${about}
This package holds the commands ccl::fio for consoles of Tcl.")
set(CPACK_COMPONENT_TCL_DEPENDS fio platform)
set(CPACK_DEBIAN_TCL_PACKAGE_SECTION interpreters)
set(CPACK_DEBIAN_TCL_PACKAGE_SHLIBDEPS ON)
# Through the stubs it needs no library of Tcl by name.
set(CPACK_DEBIAN_TCL_PACKAGE_DEPENDS "tcl (>= 8.6.0-2)")
set(CPACK_COMPONENT_PYTHON_DESCRIPTION
    "${summary} (Python)
${about}
This package holds the module ccl_fio for Python, with its stubs.")
set(CPACK_COMPONENT_PYTHON_DEPENDS fio platform)
set(CPACK_DEBIAN_PYTHON_PACKAGE_SECTION python)
set(CPACK_DEBIAN_PYTHON_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PYTHON_PACKAGE_CONTROL_EXTRA ${PROJECT_SOURCE_DIR}/cmake/debian/python/postinst
                                              ${PROJECT_SOURCE_DIR}/cmake/debian/python/prerm)

# What each package says of itself in /usr/share/doc.
if(CCL_DEBIAN_FILES)
  string(TIMESTAMP date "%a, %d %b %Y %H:%M:%S +0000" UTC) # SOURCE_DATE_EPOCH, if that is set
  configure_file(cmake/debian/changelog.in debian/changelog @ONLY)
  execute_process(
    COMMAND gzip -9n ${PROJECT_BINARY_DIR}/debian/changelog --force --stdout
    OUTPUT_FILE ${PROJECT_BINARY_DIR}/debian/changelog.gz COMMAND_ERROR_IS_FATAL ANY)
  foreach(component IN LISTS CPACK_COMPONENTS_ALL)
    set(package ${ccl_package_${component}})
    install(FILES cmake/debian/copyright ${PROJECT_BINARY_DIR}/debian/changelog.gz
            DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${package} COMPONENT ${component})
  endforeach()
endif()

include(CPack)
