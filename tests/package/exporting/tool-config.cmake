include(CMakeFindDependencyMacro)
find_dependency(ccl)
include("${CMAKE_CURRENT_LIST_DIR}/tool-targets.cmake")
