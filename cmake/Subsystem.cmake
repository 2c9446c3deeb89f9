# A subsystem is one folder of src/ and one library target. Its headers are
# included as "<folder>/<file>.h", and only by targets that link to it: each
# folder is reached through an include root of its own that holds nothing but
# a link to it, so an include against the direction of the arrows does not
# compile. A folder may hold a second library; it is the FOLDER of that one.
function(fdmorph_subsystem name)
  cmake_parse_arguments(ARG "" "FOLDER" "SOURCES;USES;PRIVATE_USES" ${ARGN})
  if(NOT ARG_FOLDER)
    set(ARG_FOLDER ${name})
  endif()
  add_library(fdmorph_${name} STATIC ${ARG_SOURCES})
  set(root ${CMAKE_BINARY_DIR}/include/${name})
  file(MAKE_DIRECTORY ${root})
  file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR} ${root}/${ARG_FOLDER} SYMBOLIC)
  target_include_directories(fdmorph_${name} PUBLIC ${root})
  foreach(used IN LISTS ARG_USES)
    target_link_libraries(fdmorph_${name} PUBLIC fdmorph_${used})
  endforeach()
  target_link_libraries(fdmorph_${name} PRIVATE fdmorph_warnings ${ARG_PRIVATE_USES})
  fdmorph_batch(fdmorph_${name} ALL)
endfunction()

# Folders that a shared library is made of. Their names stay in the library, which
# also lets the compiler inline as in a program.
function(fdmorph_sharable)
  foreach(name IN LISTS ARGN)
    set_target_properties(fdmorph_${name} PROPERTIES
      POSITION_INDEPENDENT_CODE ON
      CXX_VISIBILITY_PRESET hidden
      VISIBILITY_INLINES_HIDDEN ON)
  endforeach()
endfunction()
