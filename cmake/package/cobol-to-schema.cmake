# Runs fdmorph on a link to a source, so that what the compiler writes beside its input
# is not in the source folder. The variables are those of fdmorph_cobol_to_schema.
include(${CMAKE_CURRENT_LIST_DIR}/run-fdmorph.cmake)

cmake_path(GET arg_SOURCE FILENAME name)
cmake_path(GET arg_SOURCE PARENT_PATH folder)
set(source ${WORK}/${name})
file(CREATE_LINK ${arg_SOURCE} ${source} SYMBOLIC)

# The compiler writes the depfile. Copy members are also beside the source.
list(PREPEND arg_COPY_PATH ${folder})
list(JOIN arg_COPY_PATH ":" copy_path)
set(directives
  "COPYPATH(\"${copy_path}\")" "DEPFILE(\"${WORK}/depfile\")" "DEPTARGET(\"${OUTPUT}\")"
  ${arg_DIRECTIVES})
list(JOIN directives "\n" directives)
if(EXISTS ${WORK}/directives)
  file(READ ${WORK}/directives before)
endif()
# The output depends on the file, too, so it is written once.
if(NOT "${before}" STREQUAL "${directives}\n")
  file(WRITE ${WORK}/directives "${directives}\n")
endif()

set(options)
if(arg_MAPPING)
  list(APPEND options -m ${arg_MAPPING})
endif()
set(copies ${source})
set(originals ${arg_SOURCE})
run_fdmorph("result.cpy;result.xsd" "${arg_COPYBOOK};${OUTPUT}"
  ${source} -d ${WORK}/directives -x result.xsd -c result.cpy ${options})
