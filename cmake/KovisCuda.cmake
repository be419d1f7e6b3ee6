# The device code: whether it is built, for which devices, and by which compiler.
#
# KOVIS_CUDA_KIND is toolkit or none and names the units that stand for either; kovis_cuda is what they are compiled and linked
# with; KOVIS_DEVICE_CODE tells in words what this build holds. The host's own compiler never sees device code.

set(KOVIS_CUDA_ARCHITECTURES "" CACHE STRING
    "Architectures to build device code for, as 75;90; empty for those from 52 to 75 that the toolkit knows. PTX goes with the newest")
set(KOVIS_CUDA_HOST_COMPILER "" CACHE FILEPATH "C++ compiler that nvcc works with; empty for g++")

# Uncompressed, so that what a library holds can be read back from it. CUDA 12 calls its oldest architectures deprecated: they are
# wanted all the same.
set(KOVIS_NVCC_FLAGS -std=c++17 -O2 --no-compress -Wno-deprecated-gpu-targets
                     "-Xcompiler=-fPIC,-fvisibility=hidden,-fno-gnu-unique,-Wall,-Wextra")

# Sets KOVIS_CUDA_PROBLEM to what keeps the toolkit from being used, or to nothing, and all that the build needs of it.
function(kovis_find_cuda)
    set(KOVIS_CUDA_PROBLEM "" PARENT_SCOPE)
    find_package(CUDAToolkit QUIET)
    if(NOT CUDAToolkit_FOUND OR NOT CUDAToolkit_NVCC_EXECUTABLE)
        set(KOVIS_CUDA_PROBLEM "no CUDA toolkit was found" PARENT_SCOPE)
        return()
    endif()
    if(NOT TARGET CUDA::cudart_static)
        set(KOVIS_CUDA_PROBLEM "the CUDA toolkit in ${CUDAToolkit_BIN_DIR} has no static runtime library" PARENT_SCOPE)
        return()
    endif()
    set(hostCompiler "${KOVIS_CUDA_HOST_COMPILER}")
    if(NOT hostCompiler)
        unset(hostCompiler)
        find_program(hostCompiler NAMES g++ NO_CACHE)
    endif()
    if(NOT hostCompiler)
        set(KOVIS_CUDA_PROBLEM "nvcc needs g++, or the compiler that KOVIS_CUDA_HOST_COMPILER names" PARENT_SCOPE)
        return()
    endif()

    execute_process(COMMAND "${CUDAToolkit_NVCC_EXECUTABLE}" --list-gpu-arch OUTPUT_VARIABLE known ERROR_QUIET)
    string(REGEX MATCHALL "[0-9]+" known "${known}")
    set(architectures ${KOVIS_CUDA_ARCHITECTURES})
    if(NOT architectures)
        set(architectures 52 53 60 61 62 70 72 75)
    endif()
    string(REPLACE ";" "|" knownPattern "${known}")
    set(chosen "")
    foreach(architecture IN LISTS architectures)
        if(NOT architecture MATCHES "^[0-9]+$" OR (known AND NOT architecture MATCHES "^(${knownPattern})$"))
            if(KOVIS_CUDA_ARCHITECTURES)
                message(FATAL_ERROR "KOVIS_CUDA_ARCHITECTURES names ${architecture}; nvcc ${CUDAToolkit_VERSION} knows ${known}")
            endif()
        else()
            list(APPEND chosen ${architecture})
        endif()
    endforeach()
    if(NOT chosen)
        set(KOVIS_CUDA_PROBLEM "nvcc ${CUDAToolkit_VERSION} knows no architecture from 52 to 75; set KOVIS_CUDA_ARCHITECTURES"
            PARENT_SCOPE)
        return()
    endif()
    list(SORT chosen COMPARE NATURAL)
    list(REMOVE_DUPLICATES chosen)
    list(GET chosen -1 newest)
    set(codes "")
    foreach(architecture IN LISTS chosen)
        set(code "sm_${architecture}")
        if(architecture STREQUAL newest)
            set(code "[sm_${architecture},compute_${architecture}]")
        endif()
        list(APPEND codes "--generate-code=arch=compute_${architecture},code=${code}")
    endforeach()

    # A toolkit that does not get along with the host compiler is as good as none. Asked once for each choice.
    set(question "${CUDAToolkit_NVCC_EXECUTABLE} ${CUDAToolkit_VERSION} ${hostCompiler} ${KOVIS_NVCC_FLAGS} ${chosen}")
    if(NOT KOVIS_CUDA_TRIED STREQUAL question)
        set(probe "${PROJECT_BINARY_DIR}/CMakeFiles/kovisCudaProbe")
        file(WRITE "${probe}.cu" "__global__ void probe(int* p) { *p = 1; }\nvoid launch(int* p) { probe<<<1, 1>>>(p); }\n")
        execute_process(
            COMMAND "${CUDAToolkit_NVCC_EXECUTABLE}" ${KOVIS_NVCC_FLAGS} -ccbin "${hostCompiler}" ${codes} -c "${probe}.cu" -o
                    "${probe}.o"
            RESULT_VARIABLE status OUTPUT_VARIABLE said ERROR_VARIABLE said)
        if(NOT status EQUAL 0)
            string(REGEX REPLACE "\n.*" "" said "${said}")
            set(KOVIS_CUDA_PROBLEM "nvcc ${CUDAToolkit_VERSION} with ${hostCompiler} compiles nothing (${said})" PARENT_SCOPE)
            return()
        endif()
        set(KOVIS_CUDA_TRIED "${question}" CACHE INTERNAL "The toolkit that was seen to compile")
    endif()

    set(KOVIS_NVCC "${CUDAToolkit_NVCC_EXECUTABLE}" PARENT_SCOPE)
    set(KOVIS_NVCC_HOST_COMPILER "${hostCompiler}" PARENT_SCOPE)
    set(KOVIS_NVCC_CODES "${codes}" PARENT_SCOPE)
    set(KOVIS_CUDA_CODE "${chosen}" PARENT_SCOPE)
    set(KOVIS_CUDA_PTX "${newest}" PARENT_SCOPE)
    set(KOVIS_CUDA_VERSION "${CUDAToolkit_VERSION}" PARENT_SCOPE)
endfunction()

# kovis_add_device_code(<target> <file.cu>): the object of a device source, linked after all of the target's own: objects among the
# sources would come first. nvcc is called with its own host compiler whatever compiles the rest, so that sanitizers and warnings of
# the host's build do not reach it.
function(kovis_add_device_code target source)
    get_filename_component(name "${source}" NAME)
    set(object "${CMAKE_CURRENT_BINARY_DIR}/${name}.o")
    add_custom_command(
        OUTPUT "${object}"
        COMMAND "${KOVIS_NVCC}" ${KOVIS_NVCC_FLAGS} -ccbin "${KOVIS_NVCC_HOST_COMPILER}" ${KOVIS_NVCC_CODES}
                "-I${PROJECT_SOURCE_DIR}/include/public" "-I${PROJECT_SOURCE_DIR}/include/private" -MD -MT "${object}" -MF "${object}.d" -c
                "${CMAKE_CURRENT_SOURCE_DIR}/${source}" -o "${object}"
        DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/${source}"
        DEPFILE "${object}.d"
        COMMENT "Building device code ${name}"
        VERBATIM)
    add_custom_target(${target}DeviceCode DEPENDS "${object}")
    add_dependencies(${target} ${target}DeviceCode)
    # The target's other units see nothing of the toolkit.
    target_link_libraries(${target} PRIVATE "$<BUILD_INTERFACE:${object}>" "$<BUILD_INTERFACE:$<LINK_ONLY:CUDA::cudart_static>>")
    set_property(TARGET ${target} APPEND PROPERTY LINK_DEPENDS "${object}")
    set_property(TARGET ${target} PROPERTY KOVIS_DEVICE_OBJECT "${object}")
endfunction()

if(NOT KOVIS_WITH_CUDA MATCHES "^(AUTO|ON|OFF)$")
    message(FATAL_ERROR "KOVIS_WITH_CUDA is '${KOVIS_WITH_CUDA}'; use AUTO, ON or OFF")
endif()
if(KOVIS_WITH_CUDA STREQUAL "OFF")
    set(KOVIS_CUDA_PROBLEM "KOVIS_WITH_CUDA is OFF")
else()
    kovis_find_cuda()
endif()

add_library(kovis_cuda INTERFACE)
if(KOVIS_CUDA_PROBLEM)
    if(KOVIS_WITH_CUDA STREQUAL "ON")
        message(FATAL_ERROR "KOVIS_WITH_CUDA is ON, but ${KOVIS_CUDA_PROBLEM}")
    endif()
    set(KOVIS_CUDA_KIND none)
    set(kovisDeviceCode "Device code is left out: ${KOVIS_CUDA_PROBLEM}")
else()
    set(KOVIS_CUDA_KIND toolkit)
    list(JOIN KOVIS_CUDA_CODE "," kovisCodeList)
    target_link_libraries(kovis_cuda INTERFACE CUDA::cudart_static)
    target_compile_definitions(kovis_cuda INTERFACE "KOVIS_CUDA_CODE_ARCHITECTURES=${kovisCodeList}"
                                                    "KOVIS_CUDA_PTX_ARCHITECTURE=${KOVIS_CUDA_PTX}")
    list(TRANSFORM KOVIS_CUDA_CODE PREPEND "sm_" OUTPUT_VARIABLE kovisCodeNames)
    list(JOIN kovisCodeNames ", " kovisCodeNames)
    set(kovisDeviceCode "Device code for ${kovisCodeNames} and PTX for later devices, by nvcc ${KOVIS_CUDA_VERSION}")
endif()
set(KOVIS_DEVICE_CODE "${kovisDeviceCode}" CACHE INTERNAL "What this build holds of device code")
message(STATUS "KOVIS: ${KOVIS_DEVICE_CODE}")
