# Runs PROGRAM (a list: an emulator may stand before it) with ARGS and compares what it prints with the file EXPECTED,
# if there is one. Line ends may be those of the platform.
execute_process(
  COMMAND ${PROGRAM} ${ARGS}
  RESULT_VARIABLE result
  OUTPUT_VARIABLE output)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "the example returned ${result}")
endif()
if(EXISTS "${EXPECTED}")
  file(READ "${EXPECTED}" expected)
  string(REPLACE "\r\n" "\n" output "${output}")
  if(NOT output STREQUAL expected)
    message(FATAL_ERROR "the example printed\n${output}\nand not, as in ${EXPECTED},\n${expected}")
  endif()
endif()
