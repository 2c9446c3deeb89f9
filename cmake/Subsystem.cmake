# A subsystem is one folder of src/ and one library target. Its headers are
# included as "<folder>/<file>.h", and only by targets that link to it: each
# folder is reached through an include root of its own that holds nothing but
# a link to it, so an include against the direction of the arrows does not
# compile.

add_library(fdmorph_warnings INTERFACE)
target_compile_options(fdmorph_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion
  -Wold-style-cast -Wnon-virtual-dtor -Woverloaded-virtual -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # GCC 12 sees overlapping and endless copies in operator+ of strings.
  target_compile_options(fdmorph_warnings INTERFACE
    -Wno-array-bounds -Wno-restrict -Wno-stringop-overflow)
endif()
if(FDMORPH_SANITIZE)
  target_compile_options(fdmorph_warnings INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(fdmorph_warnings INTERFACE -fsanitize=address,undefined)
endif()
if(FDMORPH_FUZZ)
  target_compile_options(fdmorph_warnings INTERFACE -fsanitize=fuzzer-no-link)
endif()

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
endfunction()
