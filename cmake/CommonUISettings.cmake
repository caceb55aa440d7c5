# What every target of this project is compiled with.
set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_AUTOMOC ON)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/lib")
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")

if(NOT CMAKE_BUILD_TYPE)
    set(CMAKE_BUILD_TYPE RelWithDebInfo CACHE STRING "" FORCE)
endif()

include(GNUInstallDirs)
set(CMAKE_INSTALL_RPATH "$ORIGIN/../${CMAKE_INSTALL_LIBDIR};$ORIGIN")

if(COMMONUI_CCACHE AND NOT EXISTS "${COMMONUI_CCACHE}")
    unset(COMMONUI_CCACHE CACHE)
endif()
find_program(COMMONUI_CCACHE ccache)
if(COMMONUI_CCACHE)
    # Precompiled headers are cached only with these two allowances.
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env
        CCACHE_SLOPPINESS=pch_defines,time_macros CCACHE_NOHASHDIR=1 "CCACHE_BASEDIR=${CMAKE_SOURCE_DIR}"
        "${COMMONUI_CCACHE}")
endif()

add_compile_options(-Wall -Wextra -Werror)
add_compile_definitions(
    QT_NO_CAST_FROM_BYTEARRAY QT_NO_FOREACH QT_NO_KEYWORDS QT_STRICT_ITERATORS
    QT_DEPRECATED_WARNINGS $<$<NOT:$<CONFIG:Debug>>:QT_NO_DEBUG_OUTPUT>)
add_link_options(-Wl,-z,defs -Wl,--as-needed)

set(COMMONUI_SANITIZER "" CACHE STRING "Sanitizers to build with: empty, 'address,undefined' or 'thread'")
if(COMMONUI_SANITIZER)
    add_compile_options(-fsanitize=${COMMONUI_SANITIZER} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${COMMONUI_SANITIZER})
endif()

option(COMMONUI_COVERAGE "Instrument for coverage" OFF)
if(COMMONUI_COVERAGE)
    add_compile_options(--coverage)
    add_link_options(--coverage)
endif()

option(COMMONUI_LINT "Compile with the clazy plugin and clang-tidy; the compiler must be clang" OFF)
# Checks that clazy leaves out in a folder and those below it, each as ",no-CHECK".
define_property(DIRECTORY PROPERTY COMMONUI_CLAZY_EXCEPT INHERITED)
define_property(TARGET PROPERTY COMMONUI_CLAZY_EXCEPT INHERITED)
if(COMMONUI_LINT)
    # Properties here are read by style sheets and animations; NOTIFY would serve QML alone.
    add_compile_options(-Wsuggest-override -Wzero-as-null-pointer-constant
        "SHELL:-Xclang -load -Xclang ClazyPlugin.so" "SHELL:-Xclang -add-plugin -Xclang clazy"
        "SHELL:-Xclang -plugin-arg-clazy -Xclang level0,level1,no-qproperty-without-notify$<TARGET_PROPERTY:COMMONUI_CLAZY_EXCEPT>")
    set(CMAKE_CXX_CLANG_TIDY clang-tidy --quiet
        "--header-filter=^${CMAKE_SOURCE_DIR}/(src|tests|examples|benchmarks|tools)/")
    # What tools generate follows no style: clazy passes it over, and clang-tidy finds a check that it cannot fail.
    list(PREPEND CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env "CLAZY_IGNORE_DIRS=${CMAKE_BINARY_DIR}/.*")
    file(WRITE "${CMAKE_BINARY_DIR}/.clang-tidy" "Checks: '-*,llvm-twine-local'\n")
endif()
