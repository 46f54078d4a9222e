# SPDX-License-Identifier: BSL-1.0
execute_process(COMMAND ${command} OUTPUT_FILE ${output} RESULT_VARIABLE code)
execute_process(COMMAND ${CMAKE_COMMAND} -E compare_files ${output} ${expected}
  RESULT_VARIABLE difference)
if(NOT code EQUAL 0 OR NOT difference EQUAL 0)
  message(FATAL_ERROR "exit code ${code}, ${output} against ${expected}: ${difference}")
endif()
