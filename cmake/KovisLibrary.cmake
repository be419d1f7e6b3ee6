# kovis_add_library(<Name> TREE KOVIS|KOVISIPL SOURCES <files...> [PUBLIC <libs...>] [PRIVATE <libs...>] [NODELETE])
#
# A shared library KOVIS::<Name> that exports what cmake/exports/<Name>.map lists and nothing else. The order of SOURCES is
# the order in which the static initialisers run. NODELETE keeps the library in the process once it is loaded.
function(kovis_add_library name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "NODELETE" "TREE" "SOURCES;PUBLIC;PRIVATE")
    if(NOT arg_TREE MATCHES "^(KOVIS|KOVISIPL)$")
        message(FATAL_ERROR "kovis_add_library(${name}): TREE must be KOVIS or KOVISIPL")
    endif()
    if(NOT arg_SOURCES)
        message(FATAL_ERROR "kovis_add_library(${name}): no SOURCES")
    endif()

    add_library(${name} SHARED ${arg_SOURCES})
    add_library(KOVIS::${name} ALIAS ${name})

    target_compile_features(${name} PUBLIC cxx_std_20)
    target_include_directories(
        ${name}
        PUBLIC "$<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include/public>" "$<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>"
        PRIVATE "${PROJECT_SOURCE_DIR}/include/private")
    target_link_libraries(${name} PUBLIC ${arg_PUBLIC})
    # What is linked in private is no user's business: the package must not ask for it.
    foreach(private IN LISTS arg_PRIVATE ITEMS kovis_common kovis_warnings)
        target_link_libraries(${name} PRIVATE "$<BUILD_INTERFACE:${private}>")
    endforeach()

    set(exports "${PROJECT_SOURCE_DIR}/cmake/exports/${name}.map")
    target_link_options(${name} PRIVATE "LINKER:--version-script=${exports}" "LINKER:--as-needed")
    if(KOVIS_NO_UNDEFINED AND NOT KOVIS_SANITIZE)
        target_link_options(${name} PRIVATE "LINKER:--no-undefined")
    endif()
    if(arg_NODELETE)
        target_link_options(${name} PRIVATE "LINKER:-z,nodelete")
    endif()

    set_target_properties(
        ${name}
        PROPERTIES CXX_VISIBILITY_PRESET hidden
                   VISIBILITY_INLINES_HIDDEN ON
                   VERSION ${PROJECT_VERSION}
                   SOVERSION ${PROJECT_VERSION_MAJOR}
                   LINK_DEPENDS "${exports}"
                   LIBRARY_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/lib"
                   INSTALL_RPATH "$ORIGIN"
                   INTERPROCEDURAL_OPTIMIZATION OFF
                   UNITY_BUILD OFF)

    set_property(GLOBAL APPEND PROPERTY KOVIS_LIBRARIES ${name})
endfunction()

# kovis_add_program(<name> SOURCES <files...> LIBS <libs...> [INSTALL]): a program with the house's settings, in bin/ of the build tree.
function(kovis_add_program name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "INSTALL" "" "SOURCES;LIBS")
    add_executable(${name} ${arg_SOURCES})
    target_compile_features(${name} PRIVATE cxx_std_20)
    target_link_libraries(${name} PRIVATE ${arg_LIBS} kovis_common kovis_warnings)
    set_target_properties(
        ${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/bin"
                           INSTALL_RPATH "$ORIGIN/../${CMAKE_INSTALL_LIBDIR}")
    if(arg_INSTALL)
        install(TARGETS ${name} RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}")
    endif()
endfunction()
