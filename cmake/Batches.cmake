# Compiles sources in batches (unity builds), since most of the time of a source
# goes into the headers of the standard library. FDMORPH_BATCHES says which:
# ALL, TESTS for the unit tests only, or OFF.
if(FDMORPH_BATCHES)
  find_program(BATCHES_PYTHON NAMES python3 PATHS /usr/bin NO_DEFAULT_PATH REQUIRED)
endif()

# To be called in the folder that defines the target, with the values of
# FDMORPH_BATCHES that include it.
function(fdmorph_batch target)
  if(NOT FDMORPH_BATCHES IN_LIST ARGN)
    return()
  endif()
  get_target_property(sources ${target} SOURCES)
  # Generated sources may not exist yet.
  list(FILTER sources EXCLUDE REGEX "^${CMAKE_BINARY_DIR}/")
  set(script ${PROJECT_SOURCE_DIR}/cmake/source_batches.py)
  # A name that moves to another source may change the batches.
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${script} ${sources})
  execute_process(
    COMMAND ${BATCHES_PYTHON} ${script} 40 6000 ${sources}
    WORKING_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR}
    OUTPUT_VARIABLE batches OUTPUT_STRIP_TRAILING_WHITESPACE
    COMMAND_ERROR_IS_FATAL ANY)
  string(REPLACE ";" " " batches "${batches}")
  string(REPLACE "\n" ";" batches "${batches}")
  set(number 0)
  foreach(batch IN LISTS batches)
    math(EXPR number "${number} + 1")
    separate_arguments(batch UNIX_COMMAND "${batch}")
    set_source_files_properties(${batch} PROPERTIES UNITY_GROUP batch_${number})
  endforeach()
  set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_MODE GROUP)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # GCC takes an unnamed namespace of an included source for one of a header.
    target_compile_options(${target} PRIVATE -Wno-subobject-linkage)
  endif()
endfunction()
