# alidade_developer_options(target): warnings and sanitizers for alidade's own targets.
function(alidade_developer_options target)
  if(CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang" AND NOT MSVC)
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow)
    if(ALIDADE_WARNINGS_AS_ERRORS)
      target_compile_options(${target} PRIVATE -Wconversion -Werror)
    endif()
    if(ALIDADE_SANITIZE)
      target_compile_options(${target} PRIVATE -fsanitize=${ALIDADE_SANITIZE} -fno-sanitize-recover=all
                                               -fno-omit-frame-pointer -g)
      target_link_options(${target} PRIVATE -fsanitize=${ALIDADE_SANITIZE})
    endif()
  endif()
endfunction()
