# What the scripts of the rules share. WORK is the folder of the rule.

# An empty folder to run in.
file(REMOVE_RECURSE ${WORK}/run)
file(MAKE_DIRECTORY ${WORK}/run)

# run_fdmorph(RESULT OUTPUT [ARGUMENT...]) runs ${FDMORPH} in the folder ${WORK}/run, where
# it writes the files RESULT, and puts them in place as OUTPUT; both are lists. The options
# of all rules come from ${arg_PREFIX} and ${arg_NO_COUNT_IN}. What it prints
# is shown if it has messages, with the names in the list `copies` replaced by those in
# `originals`. The rule fails, unless all messages are warnings and ${arg_ALLOW_WARNINGS} is
# set. Warnings of the compiler count, although the exit status does not have them, and so
# does an empty result.
function(run_fdmorph results outputs)
  set(options -noprompt)
  if(NOT arg_PREFIX STREQUAL "")
    list(APPEND options -p ${arg_PREFIX})
  endif()
  if(arg_NO_COUNT_IN)
    list(APPEND options -nocountin)
  endif()
  execute_process(
    COMMAND ${FDMORPH} ${ARGN} ${options}
    WORKING_DIRECTORY ${WORK}/run
    RESULT_VARIABLE status OUTPUT_VARIABLE text ERROR_VARIABLE text)
  foreach(copy original IN ZIP_LISTS copies originals)
    string(REPLACE ${copy} ${original} text "${text}")
  endforeach()
  set(has_warnings FALSE)
  if(text MATCHES "zbc: 0 errors, [0-9]+ warnings?\n")
    set(has_warnings TRUE)
  endif()
  set(is_complete FALSE)
  if(text MATCHES "\n0 error\\(s\\), [0-9]+ warning\\(s\\)\n$")
    set(is_complete TRUE)
  endif()
  if(NOT status STREQUAL "0" OR has_warnings)
    message(NOTICE "${text}")
    if(NOT is_complete OR NOT arg_ALLOW_WARNINGS)
      message(FATAL_ERROR "fdmorph has messages (exit status ${status})")
    endif()
  endif()
  foreach(result output IN ZIP_LISTS results outputs)
    file(SIZE ${WORK}/run/${result} size)
    if(size EQUAL 0)
      message(NOTICE "${text}")
      message(FATAL_ERROR "fdmorph has converted nothing")
    endif()
    cmake_path(GET output PARENT_PATH folder)
    file(MAKE_DIRECTORY ${folder})
    file(RENAME ${WORK}/run/${result} ${output})
  endforeach()
endfunction()

# run_fdrec(VARIABLE ARGUMENT...) runs ${FDREC} and sets the variable to what it prints. The
# rule fails if it does.
function(run_fdrec variable)
  execute_process(COMMAND ${FDREC} ${ARGN} OUTPUT_VARIABLE text RESULT_VARIABLE status)
  if(NOT status STREQUAL "0")
    message(FATAL_ERROR "fdrec ended with status ${status}")
  endif()
  set(${variable} "${text}" PARENT_SCOPE)
endfunction()
