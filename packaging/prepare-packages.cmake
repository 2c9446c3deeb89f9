# Makes packages that keep to Debian's policy of the files that CPack has installed for them.
# CPack runs this before it packs the files, each component in a folder of its own.
cmake_policy(VERSION 3.25)

# Packages of the same files are the same, whenever they are made.
if(NOT DEFINED ENV{SOURCE_DATE_EPOCH})
  execute_process(
    COMMAND date --utc --date=${CPACK_FDMORPH_RELEASE_DATE} +%s
    OUTPUT_VARIABLE epoch OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  set(ENV{SOURCE_DATE_EPOCH} ${epoch})
endif()

set(packaging ${CPACK_FDMORPH_SOURCE_DIR}/packaging)
set(root ${CPACK_TEMPORARY_DIRECTORY})
set(control ${CPACK_TOPLEVEL_DIRECTORY}/control)
file(REMOVE_RECURSE ${control})
file(MAKE_DIRECTORY ${control}/debian)

# The changelog of the packages.
execute_process(
  COMMAND date --utc --rfc-email --date=${CPACK_FDMORPH_RELEASE_DATE}
  OUTPUT_VARIABLE release_time OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
set(debian_version ${CPACK_FDMORPH_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})
configure_file(${packaging}/changelog.Debian.in ${control}/changelog.Debian @ONLY)

# Documents that each package has.
foreach(component IN LISTS CPACK_COMPONENTS_ALL)
  string(TOUPPER ${component} upper)
  set(package ${CPACK_DEBIAN_${upper}_PACKAGE_NAME})
  set(documents ${root}/${component}/usr/share/doc/${package})
  file(COPY ${packaging}/copyright ${control}/changelog.Debian DESTINATION ${documents})
  file(COPY_FILE ${CPACK_FDMORPH_SOURCE_DIR}/CHANGELOG.md ${documents}/changelog)
  set(overrides ${root}/${component}/usr/share/lintian/overrides)
  file(MAKE_DIRECTORY ${overrides})
  file(COPY_FILE ${packaging}/lintian-overrides ${overrides}/${package})
  file(GLOB_RECURSE pages ${root}/${component}/usr/share/man/*)
  execute_process(
    COMMAND gzip -9n ${documents}/changelog ${documents}/changelog.Debian ${pages}
    COMMAND_ERROR_IS_FATAL ANY)
endforeach()
file(REMOVE ${root}/programs/usr/share/doc/fdmorph/CHANGELOG.md)

# The folder where Debian's zsh looks for completions of packages.
set(zsh ${root}/programs/usr/share/zsh)
if(EXISTS ${zsh}/site-functions)
  file(RENAME ${zsh}/site-functions ${zsh}/vendor-completions)
endif()

# The packages that these programs need.
function(set_dependencies component)
  string(TOUPPER ${component} upper)
  file(WRITE ${control}/debian/control "")
  execute_process(
    COMMAND dpkg-shlibdeps -O ${ARGN}
    WORKING_DIRECTORY ${control}
    OUTPUT_VARIABLE found ERROR_VARIABLE messages RESULT_VARIABLE status
    OUTPUT_STRIP_TRAILING_WHITESPACE)
  if(NOT status EQUAL 0)
    message(FATAL_ERROR "dpkg-shlibdeps failed: ${messages}")
  endif()
  string(REGEX REPLACE "^shlibs:Depends=" "" found "${found}")
  set(CPACK_DEBIAN_${upper}_PACKAGE_DEPENDS "${found}" PARENT_SCOPE)
endfunction()

file(GLOB programs ${root}/programs/usr/bin/* ${root}/programs/usr/libexec/fdmorph/*)
set_dependencies(programs ${programs})
set(soname libfdrec.so.${CPACK_PACKAGE_VERSION_MAJOR})
set(library ${root}/packaged_library/usr/${CPACK_FDMORPH_LIBDIR}/${soname})
set_dependencies(packaged_library ${library})

# What other packages need that use the library. A symbol that libfdrec.symbols does not
# have, or one that the library does not have, is an error.
file(WRITE ${control}/shlibs
  "libfdrec ${CPACK_PACKAGE_VERSION_MAJOR} ${CPACK_FDMORPH_LIBRARY_PACKAGE} (>= ${CPACK_FDMORPH_VERSION})\n")
execute_process(
  COMMAND dpkg-gensymbols -c4 -p${CPACK_FDMORPH_LIBRARY_PACKAGE} -v${CPACK_FDMORPH_VERSION}
    -P${root}/packaged_library -e${library}
    -I${packaging}/libfdrec.symbols -O${control}/symbols
  WORKING_DIRECTORY ${control} COMMAND_ERROR_IS_FATAL ANY)
file(WRITE ${control}/triggers "activate-noawait ldconfig\n")
set(CPACK_DEBIAN_PACKAGED_LIBRARY_PACKAGE_CONTROL_EXTRA
  ${control}/shlibs ${control}/symbols ${control}/triggers)

# Whatever the mask of the user is.
execute_process(COMMAND chmod -R u=rwX,go=rX ${root} COMMAND_ERROR_IS_FATAL ANY)
