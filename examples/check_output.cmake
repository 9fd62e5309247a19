# Runs PROGRAM (a list: an emulator may stand before it) and compares what it prints with the file EXPECTED. Line ends
# may be those of the platform.
execute_process(
  COMMAND ${PROGRAM}
  RESULT_VARIABLE result
  OUTPUT_VARIABLE output)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "the example returned ${result}")
endif()
file(READ "${EXPECTED}" expected)
string(REPLACE "\r\n" "\n" output "${output}")
if(NOT output STREQUAL expected)
  message(FATAL_ERROR "the example printed\n${output}\nand not, as in ${EXPECTED},\n${expected}")
endif()
