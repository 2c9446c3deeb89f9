# The warnings of our own targets. Whether they are errors is the choice of the
# build: CMAKE_COMPILE_WARNING_AS_ERROR, which the presets of scripts/check set.
add_library(fdmorph_warnings INTERFACE)
target_compile_options(fdmorph_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion
  -Wold-style-cast -Wnon-virtual-dtor -Woverloaded-virtual)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # GCC 12 sees overlapping and endless copies in operator+ of strings.
  target_compile_options(fdmorph_warnings INTERFACE
    -Wno-array-bounds -Wno-restrict -Wno-stringop-overflow)
else()
  target_compile_options(fdmorph_warnings INTERFACE -Wreserved-identifier)
endif()
