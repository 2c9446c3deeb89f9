# Runs fdrec plain. The variables are those of fdrec_plain_copybook.
execute_process(
  COMMAND ${FDREC} plain ${arg_COPYBOOK} -o ${OUTPUT} --depfile ${WORK}/depfile ${arg_OPTIONS}
  COMMAND_ERROR_IS_FATAL ANY)
