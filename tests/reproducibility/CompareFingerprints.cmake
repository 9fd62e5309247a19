# Runs PLAIN and HOST and compares the fingerprints they print. DIRECT says whether those of the groups named "direct-"
# must be the SAME or, the control that the host's own functions are in place, all DIFFERENT; the others must be equal.
foreach(program IN ITEMS PLAIN HOST)
  execute_process(
    COMMAND ${${program}}
    RESULT_VARIABLE result
    OUTPUT_VARIABLE ${program}_output)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "${${program}} ended with ${result}\n${${program}_output}")
  endif()
endforeach()
message("${HOST_output}")
if(DIRECT STREQUAL "SAME")
  if(NOT HOST_output STREQUAL PLAIN_output)
    message(FATAL_ERROR "the plain host prints\n${PLAIN_output}")
  endif()
  return()
endif()
string(REGEX MATCHALL "[^\n]+" plain_lines "${PLAIN_output}")
string(REGEX MATCHALL "[^\n]+" host_lines "${HOST_output}")
foreach(plain host IN ZIP_LISTS plain_lines host_lines)
  if(plain MATCHES "^direct-" AND plain STREQUAL host)
    message(FATAL_ERROR "the host's own functions are not in place: ${host}")
  elseif(NOT plain MATCHES "^direct-" AND NOT plain STREQUAL host)
    message(FATAL_ERROR "the library is affected: ${host}, and by itself ${plain}")
  endif()
endforeach()
