# run_fdmorph(ARGUMENT...) runs ${FDMORPH} in the folder ${WORK}/run. What it prints is
# shown if it has messages. Its exit status is their number; the rule fails, unless all
# are warnings and ${arg_ALLOW_WARNINGS} is set.
function(run_fdmorph)
  execute_process(
    COMMAND ${FDMORPH} ${ARGN} -noprompt
    WORKING_DIRECTORY ${WORK}/run
    RESULT_VARIABLE status OUTPUT_VARIABLE text ERROR_VARIABLE text
    ENCODING NONE)
  if(status STREQUAL "0")
    return()
  endif()
  if(arg_ALLOW_WARNINGS AND text MATCHES "\n0 error\\(s\\), [0-9]+ warning\\(s\\)\n")
    message(NOTICE "${text}")
    return()
  endif()
  message(NOTICE "${text}")
  message(FATAL_ERROR "fdmorph ended with status ${status}")
endfunction()

# An empty folder to run in.
file(REMOVE_RECURSE ${WORK}/run)
file(MAKE_DIRECTORY ${WORK}/run)
