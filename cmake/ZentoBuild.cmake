# How every target of the project is built: flags, precompiled headers, the two kinds of library.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
set(CMAKE_AUTOMOC ON)
set(CMAKE_AUTOUIC ON)
set(CMAKE_AUTORCC ON)
set_property(GLOBAL PROPERTY AUTOGEN_TARGETS_FOLDER autogen)

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM)
    # Precompiled headers only hit the cache with the sloppiness; with paths relative to the checkout another
    # clone or worktree finds what this one has compiled.
    set(CMAKE_CXX_COMPILER_LAUNCHER
        ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros CCACHE_BASEDIR=${CMAKE_SOURCE_DIR}
        CCACHE_NOHASHDIR=1 ${CCACHE_PROGRAM})
    add_compile_options($<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>)
endif()

include_directories(${CMAKE_SOURCE_DIR})
add_compile_options(-Wall -Wextra -Werror -fno-omit-frame-pointer)
add_compile_definitions(QT_NO_CAST_TO_ASCII QT_DISABLE_DEPRECATED_BEFORE=0x050000)

# -Og-like speed keeps the sanitizer runs short without losing line numbers.
set(CMAKE_CXX_FLAGS_DEBUG "-O1 -g1")
set(CMAKE_CXX_FLAGS_RELWITHDEBINFO "-O2 -g1 -DNDEBUG -DQT_NO_DEBUG")

if(ZENTO_SANITIZE)
    add_compile_options(-fsanitize=${ZENTO_SANITIZE} -fno-sanitize-recover=all)
    add_link_options(-fsanitize=${ZENTO_SANITIZE})
endif()
if(ZENTO_FUZZ)
    add_compile_options(-fsanitize=fuzzer-no-link)
endif()

# Two precompiled headers, one for each kind of library; all others reuse them.
function(zento_precompile name header)
    file(GENERATE OUTPUT ${CMAKE_BINARY_DIR}/pch/${name}.cpp CONTENT "")
    add_library(${name} OBJECT ${CMAKE_BINARY_DIR}/pch/${name}.cpp)
    set_target_properties(${name} PROPERTIES AUTOMOC OFF AUTOUIC OFF AUTORCC OFF)
    target_precompile_headers(${name} PRIVATE ${CMAKE_SOURCE_DIR}/cmake/${header})
    target_link_libraries(${name} PRIVATE ${ARGN})
endfunction()

# zento_library(zento_x SOURCES a.cpp LINKS zento_y): a library without widgets.
function(zento_library name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
    zento_any_library(${name} zento_pch_core "${ARG_SOURCES}" "${ARG_LINKS}")
    target_link_libraries(${name} PUBLIC Qt5::Core Qt5::Gui Qt5::Concurrent)
endfunction()

# zento_ui_library(zento_x_ui SOURCES a.cpp LINKS zento_x): the half of a folder that has widgets.
function(zento_ui_library name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
    zento_any_library(${name} zento_pch_widgets "${ARG_SOURCES}" "${ARG_LINKS}")
    target_link_libraries(${name} PUBLIC Qt5::Core Qt5::Gui Qt5::Concurrent Qt5::Widgets)
endfunction()

function(zento_any_library name pch sources links)
    if(NOT TARGET zento_pch_core)
        zento_precompile(zento_pch_core pch_core.h Qt5::Core Qt5::Gui Qt5::Concurrent)
        zento_precompile(zento_pch_widgets pch_widgets.h Qt5::Core Qt5::Gui Qt5::Concurrent Qt5::Widgets)
    endif()
    add_library(${name} STATIC ${sources})
    target_link_libraries(${name} PUBLIC ${links})
    target_precompile_headers(${name} REUSE_FROM ${pch})
endfunction()
