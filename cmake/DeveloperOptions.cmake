# alidade_developer_options(target): warnings and sanitizers for alidade's own targets, where it is built by itself.
function(alidade_developer_options target)
  if(NOT alidade_IS_TOP_LEVEL)
    return()
  endif()
  if(CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang" AND NOT MSVC)
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow)
    if(ALIDADE_WARNINGS_AS_ERRORS)
      # clang means conversions between signed and unsigned indices, too
      target_compile_options(${target} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-Wconversion> -Werror)
    endif()
    if(ALIDADE_SANITIZE)
      target_compile_options(${target} PRIVATE -fsanitize=${ALIDADE_SANITIZE} -fno-sanitize-recover=all
                                               -fno-omit-frame-pointer -g)
      target_link_options(${target} PRIVATE -fsanitize=${ALIDADE_SANITIZE})
    endif()
  endif()
endfunction()
