# Checks that vastrel/Vastrel.hpp under INCLUDE_DIR includes exactly the C++ headers found
# beside it: none forgotten, none that is not there. Run on the source tree by ctest and on
# an installed prefix by scripts/package-test.sh.
#   cmake -DINCLUDE_DIR=<dir> -P CheckUmbrella.cmake
if(NOT INCLUDE_DIR)
    message(FATAL_ERROR "CheckUmbrella: set INCLUDE_DIR")
endif()
file(GLOB_RECURSE headers RELATIVE "${INCLUDE_DIR}" "${INCLUDE_DIR}/vastrel/*.hpp")
list(REMOVE_ITEM headers "vastrel/Vastrel.hpp")
list(SORT headers)

file(STRINGS "${INCLUDE_DIR}/vastrel/Vastrel.hpp" lines REGEX "^#include \"")
set(included "")
foreach(line IN LISTS lines)
    string(REGEX REPLACE "^#include \"([^\"]+)\".*" "\\1" header "${line}")
    list(APPEND included "${header}")
endforeach()
list(SORT included)

if(NOT headers STREQUAL included)
    set(missing ${headers})
    list(REMOVE_ITEM missing ${included})
    set(extra ${included})
    list(REMOVE_ITEM extra ${headers})
    message(FATAL_ERROR "Vastrel.hpp does not match the headers in ${INCLUDE_DIR}:\n"
                        "  not included: ${missing}\n  included but absent: ${extra}")
endif()
list(LENGTH headers count)
message(STATUS "Vastrel.hpp includes all ${count} headers")
