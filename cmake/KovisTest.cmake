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
        target_link_libraries(${name} PRIVATE "$<TARGET_PROPERTY:${arg_OBJECTS_OF},LINK_LIBRARIES>")
    endif()
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/tests")
    if(NOT arg_TIMEOUT)
        set(arg_TIMEOUT 300)
    endif()
    add_test(NAME ${name} COMMAND ${name})
    set_tests_properties(${name} PROPERTIES LABELS "${arg_LABELS}" TIMEOUT ${arg_TIMEOUT})
endfunction()
