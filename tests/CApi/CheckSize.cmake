# Fails when the stripped C library is larger than LIMIT bytes. Usage:
#   cmake -DSTRIP=... -DLIBRARY=... -DOUTPUT=... -DLIMIT=... -P CheckSize.cmake
execute_process(COMMAND "${STRIP}" -o "${OUTPUT}" "${LIBRARY}" COMMAND_ERROR_IS_FATAL ANY)
file(SIZE "${OUTPUT}" size)
if(size GREATER LIMIT)
    message(FATAL_ERROR "the stripped ${LIBRARY} has ${size} bytes; the limit is ${LIMIT}")
endif()
message(STATUS "the stripped library has ${size} bytes (limit ${LIMIT})")
