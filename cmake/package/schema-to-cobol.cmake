# Runs fdmorph on a copy of a schema with all its files, in which locations are found
# wherever it runs. The variables are those of fdmorph_schema_to_cobol.
include(${CMAKE_CURRENT_LIST_DIR}/run-fdmorph.cmake)

set(files)
foreach(folder IN LISTS arg_IMPORT_PATH)
  list(APPEND files --import-path ${folder})
endforeach()
foreach(catalog IN LISTS arg_CATALOG)
  list(APPEND files --catalog ${catalog})
endforeach()
file(REMOVE_RECURSE ${WORK}/run)
execute_process(
  COMMAND ${FDREC} bundle ${arg_SCHEMA} -o ${WORK}/run ${files}
  OUTPUT_VARIABLE names COMMAND_ERROR_IS_FATAL ANY)
execute_process(
  COMMAND ${FDREC} deps ${arg_SCHEMA} --target ${OUTPUT} -o ${WORK}/depfile ${files}
  COMMAND_ERROR_IS_FATAL ANY)

set(options)
if(NOT arg_PREFIX STREQUAL "")
  list(APPEND options -p ${arg_PREFIX})
endif()
if(arg_UNIQUE)
  list(APPEND options -unique)
endif()
if(arg_NO_COUNT_IN)
  list(APPEND options -nocountin)
endif()
# The first line has the name of the schema in the folder.
string(REGEX MATCH "^[^ ]+" name "${names}")
run_fdmorph(${name} -c result.cpy ${options})
file(RENAME ${WORK}/run/result.cpy ${OUTPUT})
