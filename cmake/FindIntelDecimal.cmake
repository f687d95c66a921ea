# Finds Intel's decimal floating-point math library (Debian: libintelrdfpmath-dev).
# The libbidgcc000 variant passes arguments by value and takes the rounding mode and
# the status flags as explicit arguments, so no global state is shared between threads.
find_path(IntelDecimal_INCLUDE_DIR NAMES bid_functions.h)
find_library(IntelDecimal_LIBRARY NAMES libbidgcc000.a bidgcc000)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(IntelDecimal
    REQUIRED_VARS IntelDecimal_LIBRARY IntelDecimal_INCLUDE_DIR)

if(IntelDecimal_FOUND AND NOT TARGET IntelDecimal::bid)
    add_library(IntelDecimal::bid STATIC IMPORTED)
    set_target_properties(IntelDecimal::bid PROPERTIES
        IMPORTED_LOCATION "${IntelDecimal_LIBRARY}"
        INTERFACE_INCLUDE_DIRECTORIES "${IntelDecimal_INCLUDE_DIR}"
        INTERFACE_COMPILE_DEFINITIONS
            "DECIMAL_CALL_BY_REFERENCE=0;DECIMAL_GLOBAL_ROUNDING=0;DECIMAL_GLOBAL_EXCEPTION_FLAGS=0")
endif()
mark_as_advanced(IntelDecimal_INCLUDE_DIR IntelDecimal_LIBRARY)
