# Compiler settings that every target of this tree shares: kovis_common for all, kovis_warnings for our own code.

include(CheckCXXCompilerFlag)

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

# Link-time optimisation and unity builds turn the order of static initialisers round, and the load order matters.
set(CMAKE_INTERPROCEDURAL_OPTIMIZATION OFF)
set(CMAKE_UNITY_BUILD OFF)

add_library(kovis_common INTERFACE)
# Fused operations are written out where they are wanted; what a compiler would fuse by itself differs between compilers.
target_compile_options(kovis_common INTERFACE -ffp-contract=off "-fmacro-prefix-map=${PROJECT_SOURCE_DIR}/=")

check_cxx_compiler_flag(-fno-gnu-unique KOVIS_HAS_NO_GNU_UNIQUE)
if(KOVIS_HAS_NO_GNU_UNIQUE)
    # A unique symbol keeps its library in the process after dlclose.
    target_compile_options(kovis_common INTERFACE -fno-gnu-unique)
endif()

if(KOVIS_SANITIZE)
    set(kovisSanitizeFlags "-fsanitize=${KOVIS_SANITIZE}" -fno-omit-frame-pointer)
    if(KOVIS_SANITIZE MATCHES undefined)
        list(APPEND kovisSanitizeFlags -fsanitize=float-cast-overflow -fno-sanitize-recover=undefined,float-cast-overflow)
    endif()
    target_compile_options(kovis_common INTERFACE ${kovisSanitizeFlags})
    target_link_options(kovis_common INTERFACE ${kovisSanitizeFlags})
endif()

if(KOVIS_COVERAGE)
    target_compile_options(kovis_common INTERFACE --coverage -fprofile-update=atomic)
    target_link_options(kovis_common INTERFACE --coverage)
endif()

add_library(kovis_warnings INTERFACE)
# psabi is an error: a vector type that crosses a function compiled without its instruction set gives wrong values.
target_compile_options(kovis_warnings INTERFACE -Wall -Wextra -Wconversion -Wshadow -Werror=psabi)
if(KOVIS_WARNINGS_AS_ERRORS)
    target_compile_options(kovis_warnings INTERFACE -Werror)
endif()
