# Where files are installed, and as parts of what. The components are `programs`, `library`,
# what a program needs that is linked to libfdrec, and `development`, what compiling such a
# program needs. What names no component belongs to the programs. An installation without a
# component has all three.
#
# Debian's packages have libraries in a folder of the architecture, whatever the prefix of the
# build is, and some files name that folder. So they have components of their own, which only
# packaging/ installs: `packaged_library` and `packaged_development`.
include(GNUInstallDirs)

set(CMAKE_INSTALL_DEFAULT_COMPONENT_NAME programs)

if(CMAKE_LIBRARY_ARCHITECTURE)
  set(FDMORPH_PACKAGED_LIBDIR lib/${CMAKE_LIBRARY_ARCHITECTURE})
else()
  set(FDMORPH_PACKAGED_LIBDIR lib)
endif()

# Installs files for the compilation of programs with the library.
function(fdmorph_install_development destination)
  install(FILES ${ARGN} DESTINATION ${destination} COMPONENT development)
  install(FILES ${ARGN} DESTINATION ${destination} COMPONENT packaged_development
    EXCLUDE_FROM_ALL)
endfunction()
