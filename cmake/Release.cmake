# The version of a release is that of project(); its date is in the entry that CHANGELOG.md
# has for this version.
set_property(DIRECTORY ${PROJECT_SOURCE_DIR} APPEND PROPERTY
  CMAKE_CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/CHANGELOG.md)
string(REPLACE "." "\\." version_pattern "${PROJECT_VERSION}")
file(STRINGS ${PROJECT_SOURCE_DIR}/CHANGELOG.md FDMORPH_RELEASE_DATE
  REGEX "^## \\[${version_pattern}\\] - [0-9]+-[0-9]+-[0-9]+$")
string(REGEX REPLACE ".* " "" FDMORPH_RELEASE_DATE "${FDMORPH_RELEASE_DATE}")
unset(version_pattern)
if(NOT FDMORPH_RELEASE_DATE)
  message(FATAL_ERROR "expected a dated entry for version ${PROJECT_VERSION} in CHANGELOG.md")
endif()
