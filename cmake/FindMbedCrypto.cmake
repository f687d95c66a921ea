# Finds Mbed TLS's crypto library (Debian: libmbedtls-dev), which gives Vastrel its RSA
# public-key operation and SHA-1. Debian ships neither a CMake package nor a pkg-config file
# for it, hence this module.
find_path(MbedCrypto_INCLUDE_DIR NAMES mbedtls/bignum.h)
find_library(MbedCrypto_LIBRARY NAMES mbedcrypto)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(MbedCrypto
    REQUIRED_VARS MbedCrypto_LIBRARY MbedCrypto_INCLUDE_DIR)

if(MbedCrypto_FOUND AND NOT TARGET MbedCrypto::crypto)
    add_library(MbedCrypto::crypto UNKNOWN IMPORTED)
    set_target_properties(MbedCrypto::crypto PROPERTIES
        IMPORTED_LOCATION "${MbedCrypto_LIBRARY}"
        INTERFACE_INCLUDE_DIRECTORIES "${MbedCrypto_INCLUDE_DIR}")
endif()
mark_as_advanced(MbedCrypto_INCLUDE_DIR MbedCrypto_LIBRARY)
