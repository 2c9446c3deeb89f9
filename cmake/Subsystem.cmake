# A subsystem is one folder of src/ and one library target. Its headers are
# included as "<folder>/<file>.h", and only by targets that link to it: each
# folder is reached through an include root of its own that holds nothing but
# a link to it, so an include against the direction of the arrows does not
# compile.
function(fdmorph_subsystem name)
  cmake_parse_arguments(ARG "" "" "SOURCES;USES;PRIVATE_USES" ${ARGN})
  add_library(fdmorph_${name} STATIC ${ARG_SOURCES})
  set(root ${CMAKE_BINARY_DIR}/include/${name})
  file(MAKE_DIRECTORY ${root})
  file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR} ${root}/${name} SYMBOLIC)
  target_include_directories(fdmorph_${name} PUBLIC ${root})
  foreach(used IN LISTS ARG_USES)
    target_link_libraries(fdmorph_${name} PUBLIC fdmorph_${used})
  endforeach()
  target_link_libraries(fdmorph_${name} PRIVATE fdmorph_warnings ${ARG_PRIVATE_USES})
  fdmorph_batch(fdmorph_${name} ALL)
endfunction()
