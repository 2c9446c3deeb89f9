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
run_fdrec(names bundle ${arg_SCHEMA} -o ${WORK}/run ${files})
run_fdrec(ignored deps ${arg_SCHEMA} --target ${OUTPUT} -o ${WORK}/depfile ${files})

# Messages name the copies. Each line is NAME <- FILE, the first for the schema itself.
string(REGEX MATCH "^[^ ]+" name "${names}")
set(copies)
set(originals)
string(REGEX MATCHALL "[^\n]+" lines "${names}")
foreach(line IN LISTS lines)
  string(REGEX MATCH "^([^ ]+) <- (.*)$" line "${line}")
  list(APPEND copies ${WORK}/run/${CMAKE_MATCH_1})
  list(APPEND originals ${CMAKE_MATCH_2})
endforeach()

set(options)
if(arg_UNIQUE)
  list(APPEND options -unique)
endif()
run_fdmorph(result.cpy ${OUTPUT} ${name} -c result.cpy ${options})
