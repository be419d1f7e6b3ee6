# kovis_add_test(<target> SOURCES <files...> [LIBS <libs...>] [LABELS <labels...>] [OBJECTS_OF <Library>] [TIMEOUT <seconds>])
#
# One GoogleTest program and one ctest per program, named as the target. Tests see include/private too. OBJECTS_OF takes a
# library's objects into the test instead of linking the library, for what the library does not export.
# Label `slow` leaves a test out of `scripts/test --fast`.
function(kovis_add_test name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "OBJECTS_OF;TIMEOUT" "SOURCES;LIBS;LABELS")
    if(NOT arg_SOURCES)
        return()
    endif()
    add_executable(${name} ${arg_SOURCES})
    target_compile_features(${name} PRIVATE cxx_std_20)
    target_include_directories(
        ${name} PRIVATE "${PROJECT_SOURCE_DIR}/include/public" "${PROJECT_SOURCE_DIR}/include/private"
                        "${PROJECT_SOURCE_DIR}/tests")
    target_link_libraries(${name} PRIVATE ${arg_LIBS} kovis_test_support GTest::gmock GTest::gtest GTest::gtest_main
                                          kovis_common kovis_warnings)
    if(arg_OBJECTS_OF)
        target_sources(${name} PRIVATE "$<TARGET_OBJECTS:${arg_OBJECTS_OF}>")
        target_link_libraries(${name} PRIVATE "$<TARGET_GENEX_EVAL:${arg_OBJECTS_OF},$<TARGET_PROPERTY:${arg_OBJECTS_OF},LINK_LIBRARIES>>")
    endif()
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/tests")
    if(NOT arg_TIMEOUT)
        set(arg_TIMEOUT 300)
    endif()
    add_test(NAME ${name} COMMAND ${name})
    set_tests_properties(${name} PROPERTIES LABELS "${arg_LABELS}" TIMEOUT ${arg_TIMEOUT})
endfunction()

# kovis_add_qemu_tests(<target> [ARGS <arguments...>]): runs a test program again on processors that lack the stronger sets, one
# ctest per processor, labelled slow. The program finds the form that it has to run in KOVIS_EXPECTED_FORM (sse2, avx, avx2, fma3)
# and fails when another one ran. Instrumented builds leave these out: sanitizers need the real machine.
function(kovis_add_qemu_tests name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "ARGS")
    if(KOVIS_SANITIZE OR KOVIS_COVERAGE)
        return()
    endif()
    find_program(KOVIS_QEMU qemu-x86_64 DOC "qemu-user, for tests on other processors")
    if(NOT KOVIS_QEMU)
        message(FATAL_ERROR "The tests need qemu-x86_64: install it (apt-get install qemu-user) or set KOVIS_BUILD_TESTS=OFF")
    endif()
    foreach(pair "sse2=qemu64" "avx=SandyBridge" "avx2=Haswell-noTSX,fma=off" "fma3=max")
        string(REGEX MATCH "^([a-z0-9]+)=(.*)$" matched "${pair}")
        set(form "${CMAKE_MATCH_1}")
        add_test(NAME ${name}.qemu-${form} COMMAND "${KOVIS_QEMU}" -cpu "${CMAKE_MATCH_2}" "$<TARGET_FILE:${name}>" ${arg_ARGS})
        set_tests_properties(${name}.qemu-${form} PROPERTIES LABELS "slow;qemu" TIMEOUT 1800
                                                             ENVIRONMENT "KOVIS_EXPECTED_FORM=${form}")
    endforeach()
endfunction()
