# Makes the pages by DOXYGEN from what a fresh clone of SOURCE holds, in the folder WORK, and looks at what a reader sees
# of them. PYTHON follows the links and
# writes the manual pages, at which MANDOC looks.

function(expect text pattern)
  if(NOT "${text}" MATCHES "${pattern}")
    message(SEND_ERROR "expected, but not there: ${pattern}")
  endif()
endfunction()

file(REMOVE_RECURSE ${WORK})
foreach(name README.md CONTRIBUTING.md CHANGELOG.md SECURITY.md docs ccl)
  file(COPY ${SOURCE}/${name} DESTINATION ${WORK})
endforeach()
execute_process(COMMAND ${DOXYGEN} docs/Doxyfile WORKING_DIRECTORY ${WORK} COMMAND_ERROR_IS_FATAL ANY)
set(pages ${WORK}/build/docs)

# Links lead to pages, anchors and pictures that exist.
if(PYTHON)
  execute_process(COMMAND ${PYTHON} -B ${CMAKE_CURRENT_LIST_DIR}/check_links.py ${pages} COMMAND_ERROR_IS_FATAL ANY)
  execute_process(COMMAND ${PYTHON} -B ${SOURCE}/man/reference.py ${WORK}/build/xml ${WORK}/man3 0 COMMAND_ERROR_IS_FATAL
                  ANY)
  file(GLOB man_pages ${WORK}/man3/*.3 ${SOURCE}/man/*.7)
  list(LENGTH man_pages count)
  if(count LESS 9)
    message(SEND_ERROR "only ${count} manual pages")
  endif()
  if(MANDOC)
    # The description of an operation may be wider than a line of the source.
    execute_process(COMMAND ${MANDOC} -Tlint -Wwarning ${man_pages} COMMAND_ERROR_IS_FATAL ANY)
  endif()
endif()
file(READ ${pages}/index.html main_page)
expect("${main_page}" "href=\"fio__path_8h\\.html\"")

# The navigation has every page of the guide below its index.
file(READ ${pages}/Guide.js guide)
file(GLOB guide_pages RELATIVE ${SOURCE}/docs/guide ${SOURCE}/docs/guide/[a-z]*.md)
foreach(page IN LISTS guide_pages)
  string(REPLACE ".md" ".html" page md_docs_guide_${page})
  expect("${guide}" "\"${page}\"")
endforeach()

# A header is included by its path from the root.
file(GLOB class_pages ${pages}/class*.html ${pages}/struct*.html)
foreach(page IN LISTS class_pages)
  file(STRINGS ${page} includes REGEX "#include &lt;")
  foreach(include IN LISTS includes)
    expect("${include}" "#include &lt;(<a [^>]*>)?ccl/")
  endforeach()
endforeach()

# The class has the description of its header, and each of its functions stands in a named group.
file(READ ${pages}/classFIO__PATH.html path_page)
expect("${path_page}" "#include &lt;<a [^>]*>ccl/fio/fio_path\\.h</a>&gt;")
string(REGEX MATCH "<a name=\"details\".*" details "${path_page}")
expect("${details}" "Separators.*Length.*Failure.*Thread safety")
string(FIND "${path_page}" "name=\"pub-methods\"" functions)
string(SUBSTRING "${path_page}" ${functions} -1 functions)
string(FIND "${functions}" "groupHeader" first_group)
string(FIND "${functions}" "memitem:" first_function)
if(first_function LESS first_group)
  message(SEND_ERROR "a function of FIO_PATH stands outside the groups")
endif()
