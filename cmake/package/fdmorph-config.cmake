# The CMake package of fdmorph: programs as imported targets, and functions that add
# build rules. docs/cmake.md describes them.
include(${CMAKE_CURRENT_LIST_DIR}/fdmorph-targets.cmake)
include(${CMAKE_CURRENT_LIST_DIR}/fdmorph-rules.cmake)
