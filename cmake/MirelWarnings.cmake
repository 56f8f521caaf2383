# Warnings are errors for the project's own targets only, never for a consumer's.
function(mirel_warnings target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Werror)
endfunction()
