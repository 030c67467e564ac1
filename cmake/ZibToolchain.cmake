# SPDX-License-Identifier: GPL-3.0-or-later
# Compiler settings shared by every target.

if(NOT CMAKE_BUILD_TYPE)
    set(CMAKE_BUILD_TYPE Dev CACHE STRING "" FORCE)
endif()

# Light optimisation keeps the tests quick, and line tables are enough for a backtrace.
set(CMAKE_CXX_FLAGS_DEV "-O1 -g1")
set(CMAKE_C_FLAGS_DEV "-O1 -g1")

find_program(CCACHE ccache)
if(CCACHE)
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env CCACHE_BASEDIR=${CMAKE_SOURCE_DIR} CCACHE_NOHASHDIR=1 ${CCACHE})
    set(CMAKE_C_COMPILER_LAUNCHER ${CMAKE_CXX_COMPILER_LAUNCHER})
endif()

find_program(MOLD mold)
if(MOLD)
    add_link_options(-fuse-ld=mold)
endif()

add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Werror
                    -fno-omit-frame-pointer)
add_compile_definitions(QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS QT_NO_FOREACH
                        QT_DISABLE_DEPRECATED_BEFORE=0x060400)
if(CMAKE_BUILD_TYPE STREQUAL Dev)
    add_compile_definitions(_GLIBCXX_ASSERTIONS)
endif()

if(ZIB_SANITIZE)
    add_compile_options(-fsanitize=${ZIB_SANITIZE} -fno-sanitize-recover=all)
    add_link_options(-fsanitize=${ZIB_SANITIZE})
endif()
if(ZIB_LIBFUZZER)
    add_compile_options(-fsanitize=fuzzer-no-link) # the fuzzer is blind in code that is not instrumented
endif()
