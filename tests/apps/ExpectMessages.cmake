# SPDX-License-Identifier: BSL-1.0
# Runs the command; it must end with the code, and print what matches to the output and the error
# stream. A pass expression alone would not look at the exit code.
execute_process(COMMAND ${command}
  RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE errors)
if(NOT result EQUAL code OR NOT output MATCHES "${printed}" OR NOT errors MATCHES "${told}")
  message(FATAL_ERROR "exit code ${result}, output: ${output}, errors: ${errors}")
endif()
