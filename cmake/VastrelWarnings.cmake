# Warnings are errors for the project's own targets only; third-party headers are
# included as system headers and stay out of it.
function(vastrel_set_warnings target)
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Werror)
endfunction()
