include(${CMAKE_CURRENT_LIST_DIR}/fdrec-targets.cmake)
