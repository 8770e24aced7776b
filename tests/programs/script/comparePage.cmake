# Fails if PAGE is not what PROGRAM makes of EXAMPLES.
execute_process(COMMAND "${PROGRAM}" --page "${EXAMPLES}"
    OUTPUT_VARIABLE made COMMAND_ERROR_IS_FATAL ANY)
file(READ "${PAGE}" page)
if(NOT made STREQUAL page)
    message(FATAL_ERROR "${PAGE} is out of date: orvel-script --page ${EXAMPLES} > ${PAGE}")
endif()
