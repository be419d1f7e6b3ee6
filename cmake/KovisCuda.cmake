# There is no device code yet, so AUTO and OFF build the same: every class stands, and GPU support reports itself as off.

if(KOVIS_WITH_CUDA STREQUAL "ON")
    message(FATAL_ERROR "KOVIS_WITH_CUDA is ON, but this version has no device code; use AUTO or OFF")
elseif(NOT KOVIS_WITH_CUDA MATCHES "^(AUTO|OFF)$")
    message(FATAL_ERROR "KOVIS_WITH_CUDA is '${KOVIS_WITH_CUDA}'; use AUTO, ON or OFF")
endif()
message(STATUS "KOVIS: built without device code (KOVIS_WITH_CUDA=${KOVIS_WITH_CUDA})")
