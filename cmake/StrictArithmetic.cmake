# alidade_strict_arithmetic(target): compile a target so that every operation is rounded where the source says so.
#
# No fused multiply-add, no reassociation, SSE2 instead of x87 on 32-bit x86. sin, cos and pow stay calls into the math
# library: GCC would else merge sin and cos into one sincos when optimising, and fold constant arguments.
function(alidade_strict_arithmetic target)
  if(MSVC AND NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    target_compile_options(${target} PRIVATE /fp:precise)
  elseif(MSVC)
    target_compile_options(${target} PRIVATE /fp:precise /clang:-ffp-contract=off)
  else()
    target_compile_options(${target} PRIVATE -ffp-contract=off -fno-fast-math -fno-builtin-sin -fno-builtin-cos
                                             -fno-builtin-pow)
    if(CMAKE_SYSTEM_PROCESSOR MATCHES "^(i[3-6]86|x86|x86_64|AMD64|amd64)$" AND CMAKE_SIZEOF_VOID_P EQUAL 4
       AND NOT EMSCRIPTEN) # which calls its processor x86
      target_compile_options(${target} PRIVATE -msse2 -mfpmath=sse)
    endif()
  endif()
endfunction()
