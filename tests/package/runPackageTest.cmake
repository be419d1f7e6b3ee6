# Installs KOVIS afresh, builds the project in this folder against it with nothing but the package's place, and runs it.
# Then does the same against the build tree. Called with -D: BUILD (KOVIS build tree), SOURCE (this folder), WORK (scratch folder),
# CXX, CXX_FLAGS, BUILD_TYPE, GENERATOR, EXPECTED (the line that the program prints).

function(run)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
    if(NOT result EQUAL 0)
        list(JOIN ARGN " " command)
        message(FATAL_ERROR "${command}\nended with ${result}:\n${output}")
    endif()
    set(output "${output}" PARENT_SCOPE)
endfunction()

function(build_and_run name package)
    run("${CMAKE_COMMAND}" -S "${SOURCE}" -B "${WORK}/${name}" -G "${GENERATOR}" "-DKOVIS_DIR=${package}"
        "-DCMAKE_CXX_COMPILER=${CXX}" "-DCMAKE_CXX_FLAGS=${CXX_FLAGS}" "-DCMAKE_BUILD_TYPE=${BUILD_TYPE}")
    run("${CMAKE_COMMAND}" --build "${WORK}/${name}")
    run("${WORK}/${name}/useskovis")
    string(STRIP "${output}" output)
    if(NOT output STREQUAL EXPECTED)
        message(FATAL_ERROR "${name}: the program printed '${output}', expected '${EXPECTED}'")
    endif()
    message(STATUS "${name}: ${output}")
endfunction()

file(REMOVE_RECURSE "${WORK}")
run("${CMAKE_COMMAND}" --install "${BUILD}" --prefix "${WORK}/install")

# An install is whole when it is moved, and when nothing leads back to the tree that it came from.
file(RENAME "${WORK}/install" "${WORK}/moved")
file(GLOB_RECURSE packageFiles "${WORK}/moved/*.cmake")
foreach(packageFile IN LISTS packageFiles)
    file(READ "${packageFile}" text)
    string(FIND "${text}" "${BUILD}" place)
    if(NOT place EQUAL -1)
        message(FATAL_ERROR "${packageFile} names the build tree")
    endif()
endforeach()
if(EXISTS "${WORK}/moved/include/private" OR NOT EXISTS "${WORK}/moved/include/KOVIS/KOVISUtil/BaseException.h")
    message(FATAL_ERROR "the install does not hold the public headers, and those alone")
endif()

file(GLOB_RECURSE configFile "${WORK}/moved/*/KOVISConfig.cmake")
get_filename_component(packageFolder "${configFile}" DIRECTORY)
build_and_run(from-install "${packageFolder}")
build_and_run(from-build-tree "${BUILD}")
