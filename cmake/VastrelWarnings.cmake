# Warnings are errors in Vastrel's own builds and CI. A project that adds Vastrel with
# add_subdirectory or FetchContent builds it with another compiler or newer warnings than ours,
# so there they stay warnings unless it asks otherwise. Third-party headers are included as
# system headers and stay out of it.
option(VASTREL_WARNINGS_AS_ERRORS "Treat compiler warnings as errors in Vastrel's targets"
       ${PROJECT_IS_TOP_LEVEL})

function(vastrel_set_warnings target)
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic)
    if(VASTREL_WARNINGS_AS_ERRORS)
        target_compile_options(${target} PRIVATE -Werror)
    endif()
endfunction()
