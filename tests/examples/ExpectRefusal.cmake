# Runs the command; it must end with 1 and print the message to the error stream.
execute_process(COMMAND ${command} RESULT_VARIABLE result OUTPUT_QUIET ERROR_VARIABLE errors)
if(NOT result EQUAL 1 OR NOT errors MATCHES "${message}")
  message(FATAL_ERROR "exit code ${result}, message: ${errors}")
endif()
