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

# alidade_refuse_fast_math(): stops where the flags of the user, or of the project around us, give up the bits. The
# options above undo -ffast-math for the compiler only, and at the link it adds start-up code that sets flush-to-zero
# for every program that loads the library; the other flags are not undone at all.
function(alidade_refuse_fast_math)
  get_directory_property(compile_options COMPILE_OPTIONS)
  get_directory_property(link_options LINK_OPTIONS)
  set(names compile_options link_options CMAKE_CXX_COMPILER_ARG1)
  string(TOUPPER "${CMAKE_BUILD_TYPE};${CMAKE_CONFIGURATION_TYPES}" types)
  foreach(name IN ITEMS CMAKE_CXX_FLAGS CMAKE_SHARED_LINKER_FLAGS CMAKE_EXE_LINKER_FLAGS)
    list(APPEND names ${name})
    foreach(type IN LISTS types)
      list(APPEND names ${name}_${type})
    endforeach()
  endforeach()
  set(math "-f(fast|unsafe|associative|reciprocal|finite)-math[a-z-]*|-ffp-model=(fast|aggressive)")
  foreach(name IN LISTS names)
    if("${${name}}" MATCHES "(^|[ ;])(-Ofast|${math}|-fno-signed-zeros|-mdaz-ftz)([ ;]|$)")
      message(FATAL_ERROR "alidade's results are fixed to the bit: build it without ${CMAKE_MATCH_2} (in ${name}). A "
                          "program that uses it may be compiled with that flag, but not linked with it: "
                          "target_compile_options(your_program PRIVATE ${CMAKE_MATCH_2}).")
    endif()
  endforeach()
endfunction()
