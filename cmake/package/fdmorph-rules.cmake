# Build rules for COBOL copybooks and XML Schemas. Each rule depends on all files that
# its input includes, imports or copies.

# Relative paths in the rules of depfiles are those of the folder of the build rule, and
# an empty argument of a function is one.
cmake_policy(PUSH)
cmake_policy(VERSION 3.20...3.25)

set(_fdmorph_scripts ${CMAKE_CURRENT_LIST_DIR})

# Ends CMake for wrong arguments of a function. `prefix` is that of its parsed arguments.
function(_fdmorph_check_arguments function prefix input)
  if(${prefix}_UNPARSED_ARGUMENTS)
    list(JOIN ${prefix}_UNPARSED_ARGUMENTS " " words)
    message(FATAL_ERROR "${function}: unknown arguments: ${words}")
  endif()
  if(${prefix}_KEYWORDS_MISSING_VALUES)
    list(JOIN ${prefix}_KEYWORDS_MISSING_VALUES " " words)
    message(FATAL_ERROR "${function}: no value after ${words}")
  endif()
  if(NOT ${prefix}_${input})
    message(FATAL_ERROR "${function}: expected ${input} and a file")
  endif()
endfunction()

# Makes each path of a list absolute: inputs are relative to the source folder.
function(_fdmorph_absolute_inputs variable)
  set(paths)
  foreach(path IN LISTS ${variable})
    cmake_path(ABSOLUTE_PATH path BASE_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR} NORMALIZE)
    list(APPEND paths ${path})
  endforeach()
  set(${variable} ${paths} PARENT_SCOPE)
endfunction()

# The path of an output, relative to the binary folder; by default there, with the name
# of the input and `ending` in place of its extension.
function(_fdmorph_output variable input ending)
  set(path ${${variable}})
  if(NOT path)
    cmake_path(GET input STEM LAST_ONLY path)
    string(APPEND path ${ending})
  endif()
  cmake_path(ABSOLUTE_PATH path BASE_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR} NORMALIZE)
  set(${variable} ${path} PARENT_SCOPE)
endfunction()

# Ends CMake where two rules have the same output.
function(_fdmorph_check_outputs function)
  foreach(output IN LISTS ARGN)
    get_property(is_taken GLOBAL PROPERTY "fdmorph output ${output}")
    if(is_taken)
      message(FATAL_ERROR "${function}: another rule has the output ${output}")
    endif()
    set_property(GLOBAL PROPERTY "fdmorph output ${output}" TRUE)
  endforeach()
endfunction()

# Writes a script that sets these variables, and then runs `script`. Sets `rule` to the
# path of the script and `work` to a folder of the rule's own, which are named after its
# output.
function(_fdmorph_script script output)
  cmake_path(GET output FILENAME name)
  string(MD5 hash ${output})
  string(SUBSTRING ${hash} 0 8 hash)
  set(work ${CMAKE_CURRENT_BINARY_DIR}/CMakeFiles/fdmorph/${name}-${hash})
  set(text "")
  set(OUTPUT ${output})
  set(WORK ${work})
  foreach(each IN ITEMS OUTPUT WORK ${ARGN})
    string(APPEND text "set(${each} [==[${${each}}]==])\n")
  endforeach()
  string(APPEND text "include([==[${_fdmorph_scripts}/${script}]==])\n")
  set(rule ${work}/rule.cmake)
  if(EXISTS ${rule})
    file(READ ${rule} before)
  endif()
  if(NOT "${before}" STREQUAL "${text}")
    file(WRITE ${rule} "${text}")
  endif()
  set(rule ${rule} PARENT_SCOPE)
  set(work ${work} PARENT_SCOPE)
endfunction()

# The paths of the programs.
function(_fdmorph_programs)
  foreach(program IN LISTS ARGN)
    get_target_property(path fdmorph::${program} LOCATION)
    string(TOUPPER ${program} variable)
    set(${variable} ${path} PARENT_SCOPE)
  endforeach()
endfunction()

# fdmorph_schema_to_cobol(SCHEMA FILE [OUTPUT FILE] [PREFIX TEXT] [UNIQUE] [NO_COUNT_IN]
#                         [IMPORT_PATH DIR...] [CATALOG FILE...] [ALLOW_WARNINGS])
function(fdmorph_schema_to_cobol)
  cmake_parse_arguments(PARSE_ARGV 0 arg "UNIQUE;NO_COUNT_IN;ALLOW_WARNINGS"
    "SCHEMA;OUTPUT;PREFIX" "IMPORT_PATH;CATALOG")
  _fdmorph_check_arguments(fdmorph_schema_to_cobol arg SCHEMA)
  _fdmorph_absolute_inputs(arg_SCHEMA)
  _fdmorph_absolute_inputs(arg_IMPORT_PATH)
  _fdmorph_absolute_inputs(arg_CATALOG)
  _fdmorph_output(arg_OUTPUT ${arg_SCHEMA} .cpy)
  _fdmorph_check_outputs(fdmorph_schema_to_cobol ${arg_OUTPUT})
  _fdmorph_programs(fdmorph fdrec)
  _fdmorph_script(schema-to-cobol.cmake ${arg_OUTPUT} FDMORPH FDREC arg_SCHEMA arg_PREFIX arg_UNIQUE
    arg_NO_COUNT_IN arg_IMPORT_PATH arg_CATALOG arg_ALLOW_WARNINGS)
  add_custom_command(
    OUTPUT ${arg_OUTPUT}
    COMMAND ${CMAKE_COMMAND} -P ${rule}
    DEPENDS ${rule} ${arg_SCHEMA} ${arg_CATALOG} ${FDMORPH} ${FDREC}
      ${_fdmorph_scripts}/schema-to-cobol.cmake ${_fdmorph_scripts}/run-fdmorph.cmake
    DEPFILE ${work}/depfile
    COMMENT "Writing copybook ${arg_OUTPUT}"
    VERBATIM)
endfunction()

# fdmorph_cobol_to_schema(SOURCE FILE [SCHEMA FILE] [COPYBOOK FILE] [MAPPING FILE]
#                         [PREFIX TEXT] [NO_COUNT_IN] [DIRECTIVES TEXT...] [COPY_PATH DIR...]
#                         [ALLOW_WARNINGS])
function(fdmorph_cobol_to_schema)
  cmake_parse_arguments(PARSE_ARGV 0 arg "NO_COUNT_IN;ALLOW_WARNINGS"
    "SOURCE;SCHEMA;COPYBOOK;MAPPING;PREFIX" "DIRECTIVES;COPY_PATH")
  _fdmorph_check_arguments(fdmorph_cobol_to_schema arg SOURCE)
  _fdmorph_absolute_inputs(arg_SOURCE)
  _fdmorph_absolute_inputs(arg_MAPPING)
  _fdmorph_absolute_inputs(arg_COPY_PATH)
  _fdmorph_output(arg_SCHEMA ${arg_SOURCE} .xsd)
  _fdmorph_output(arg_COPYBOOK ${arg_SOURCE} -fdmorph.cpy)
  _fdmorph_check_outputs(fdmorph_cobol_to_schema ${arg_SCHEMA} ${arg_COPYBOOK})
  foreach(directive IN LISTS arg_DIRECTIVES)
    # Without quotes, CMake takes the parentheses for arguments of their own.
    if(directive MATCHES "^[()]$")
      message(FATAL_ERROR "fdmorph_cobol_to_schema: write directives in quotes: \"NAME(VALUE)\"")
    endif()
    string(TOUPPER "${directive}" directive)
    if(directive MATCHES "DEPFILE|DEPTARGET")
      message(FATAL_ERROR "fdmorph_cobol_to_schema: the rule has a depfile of its own")
    endif()
  endforeach()
  _fdmorph_programs(fdmorph)
  _fdmorph_script(cobol-to-schema.cmake ${arg_SCHEMA} FDMORPH arg_SOURCE arg_COPYBOOK arg_MAPPING
    arg_PREFIX arg_NO_COUNT_IN arg_DIRECTIVES arg_COPY_PATH arg_ALLOW_WARNINGS)
  add_custom_command(
    OUTPUT ${arg_SCHEMA} ${arg_COPYBOOK}
    COMMAND ${CMAKE_COMMAND} -P ${rule}
    DEPENDS ${rule} ${arg_SOURCE} ${arg_MAPPING} ${FDMORPH}
      ${_fdmorph_scripts}/cobol-to-schema.cmake ${_fdmorph_scripts}/run-fdmorph.cmake
    DEPFILE ${work}/depfile
    COMMENT "Writing schema ${arg_SCHEMA}"
    VERBATIM)
endfunction()

# fdrec_plain_copybook(COPYBOOK FILE [OUTPUT FILE] [OPTIONS WORD...])
function(fdrec_plain_copybook)
  cmake_parse_arguments(PARSE_ARGV 0 arg "" "COPYBOOK;OUTPUT" "OPTIONS")
  _fdmorph_check_arguments(fdrec_plain_copybook arg COPYBOOK)
  # The copybook may be the output of another rule.
  cmake_path(IS_RELATIVE arg_COPYBOOK is_relative)
  if(is_relative AND NOT EXISTS ${CMAKE_CURRENT_SOURCE_DIR}/${arg_COPYBOOK})
    cmake_path(ABSOLUTE_PATH arg_COPYBOOK BASE_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR} NORMALIZE)
  endif()
  _fdmorph_absolute_inputs(arg_COPYBOOK)
  _fdmorph_output(arg_OUTPUT ${arg_COPYBOOK} -plain.cpy)
  _fdmorph_check_outputs(fdrec_plain_copybook ${arg_OUTPUT})
  _fdmorph_programs(fdrec)
  _fdmorph_script(plain-copybook.cmake ${arg_OUTPUT} FDREC arg_COPYBOOK arg_OPTIONS)
  add_custom_command(
    OUTPUT ${arg_OUTPUT}
    COMMAND ${CMAKE_COMMAND} -P ${rule}
    DEPENDS ${rule} ${arg_COPYBOOK} ${FDREC}
      ${_fdmorph_scripts}/plain-copybook.cmake ${_fdmorph_scripts}/run-fdmorph.cmake
    DEPFILE ${work}/depfile
    COMMENT "Writing plain copybook ${arg_OUTPUT}"
    VERBATIM)
endfunction()

cmake_policy(POP)
