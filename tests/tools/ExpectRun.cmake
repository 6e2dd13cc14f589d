# Runs one qvdoc command line and checks how it ends: cmake -DCOMMAND=...
# -DEXIT=<expected exit code> [-DMATCH=<regex the output must hold>]
# [-DNO_MATCH=<regex it must not hold>] -P ExpectRun.cmake. The test's own
# TIMEOUT catches a command that never ends.
separate_arguments(args UNIX_COMMAND "${COMMAND}")
execute_process(COMMAND ${args} RESULT_VARIABLE code OUTPUT_VARIABLE out ERROR_VARIABLE err)
set(all "${out}${err}")
if(NOT code STREQUAL "${EXIT}")
  message(FATAL_ERROR "exit ${code}, expected ${EXIT}:\n${all}")
endif()
if(DEFINED MATCH AND NOT all MATCHES "${MATCH}")
  message(FATAL_ERROR "output does not match \"${MATCH}\":\n${all}")
endif()
if(DEFINED NO_MATCH AND all MATCHES "${NO_MATCH}")
  message(FATAL_ERROR "output matches \"${NO_MATCH}\":\n${all}")
endif()
