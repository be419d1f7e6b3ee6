# Everything a user may set, in one place.

set(KOVIS_WITH_CUDA AUTO CACHE STRING "Build the device code: AUTO (when a toolkit is found), ON or OFF")
set_property(CACHE KOVIS_WITH_CUDA PROPERTY STRINGS AUTO ON OFF)

option(KOVIS_BUILD_TOOLS "Build kovis-color, the demo helper and the examples" ${PROJECT_IS_TOP_LEVEL})
option(KOVIS_BUILD_TESTS "Build the tests" ${PROJECT_IS_TOP_LEVEL})
option(KOVIS_BUILD_BENCHMARKS "Build the benchmarks" OFF)
option(KOVIS_BUILD_DOCS "Build the reference documentation (needs doxygen)" OFF)
option(KOVIS_WARNINGS_AS_ERRORS "Treat every warning as an error" OFF)
option(KOVIS_NO_UNDEFINED "Refuse symbols that no linked library defines" ON)
option(KOVIS_COVERAGE "Measure test coverage with gcov" OFF)

set(KOVIS_SANITIZE "" CACHE STRING "Sanitizer to build with: address, undefined, thread or address,undefined; empty for none")
set_property(CACHE KOVIS_SANITIZE PROPERTY STRINGS "" address undefined thread address,undefined)
if(NOT KOVIS_SANITIZE MATCHES "^(address|undefined|thread|address,undefined)?$")
    message(FATAL_ERROR "KOVIS_SANITIZE is '${KOVIS_SANITIZE}'; use address, undefined, thread, address,undefined or nothing")
endif()

if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
    set(CMAKE_BUILD_TYPE Release CACHE STRING "Kind of build" FORCE)
endif()

include(GNUInstallDirs)
