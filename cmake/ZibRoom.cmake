# SPDX-License-Identifier: GPL-3.0-or-later
# The kinds of target that the project is made of.

# zib_room(NAME SOURCES ... LINKS ...): one room of the house as the static library zib_NAME. It sees the headers
# of what it links, and the same objects are linked once more, whole, against nothing but that: a symbol from a
# library that the room may not use fails the build here.
function(zib_room name)
    cmake_parse_arguments(ROOM "" "" "SOURCES;LINKS" ${ARGN})
    add_library(zib_${name} STATIC ${ROOM_SOURCES})
    target_include_directories(zib_${name} PUBLIC ${PROJECT_SOURCE_DIR})
    target_link_libraries(zib_${name} PUBLIC ${ROOM_LINKS})
    set_target_properties(zib_${name} PROPERTIES AUTOMOC ON)

    add_library(zib_${name}_walls SHARED $<TARGET_OBJECTS:zib_${name}>)
    target_link_libraries(zib_${name}_walls PRIVATE ${ROOM_LINKS})
    if(NOT ZIB_SANITIZE) # a sanitizer's own symbols are resolved in the program only
        target_link_options(zib_${name}_walls PRIVATE LINKER:--no-undefined)
    endif()
endfunction()

# zib_test(NAME SOURCES ... LINKS ... [LABELS ...]): one GoogleTest program, one ctest entry.
# Label "logic" (the default) marks tests that need no display, sound server or bus and run under the sanitizers.
# With X11 it has a virtual screen of its own.
function(zib_test name)
    cmake_parse_arguments(TEST "X11" "TIMEOUT" "SOURCES;LINKS;LABELS;ENVIRONMENT" ${ARGN})
    if(NOT TEST_LABELS)
        set(TEST_LABELS logic)
    endif()
    if(NOT TEST_TIMEOUT)
        set(TEST_TIMEOUT 120)
    endif()
    add_executable(${name} ${TEST_SOURCES})
    target_link_libraries(${name} PRIVATE ${TEST_LINKS} zib_test_support GTest::gmock GTest::gtest)
    set_target_properties(${name} PROPERTIES AUTOMOC ON)
    if(TEST_X11)
        add_test(NAME ${name} COMMAND xvfb-run -a -s "-screen 0 1280x800x24" $<TARGET_FILE:${name}>)
        list(APPEND TEST_ENVIRONMENT QT_QPA_PLATFORM=xcb)
    else()
        add_test(NAME ${name} COMMAND ${name})
    endif()
    set_tests_properties(${name} PROPERTIES LABELS "${TEST_LABELS}" TIMEOUT ${TEST_TIMEOUT}
        ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8;TZ=UTC;${TEST_ENVIRONMENT}")
endfunction()

# zib_fuzz(NAME SOURCES ... LINKS ...): a libFuzzer target fuzz_NAME with the corpus fuzz/corpus/NAME. Without
# libFuzzer the same code replays the corpus as an ordinary test.
function(zib_fuzz name)
    cmake_parse_arguments(FUZZ "" "" "SOURCES;LINKS" ${ARGN})
    add_executable(fuzz_${name} ${FUZZ_SOURCES})
    target_link_libraries(fuzz_${name} PRIVATE ${FUZZ_LINKS})
    if(ZIB_LIBFUZZER)
        target_link_options(fuzz_${name} PRIVATE -fsanitize=fuzzer)
    else()
        target_sources(fuzz_${name} PRIVATE ${PROJECT_SOURCE_DIR}/fuzz/replay.cpp)
        add_test(NAME fuzz_${name} COMMAND fuzz_${name} ${PROJECT_SOURCE_DIR}/fuzz/corpus/${name})
        set_tests_properties(fuzz_${name} PROPERTIES LABELS logic TIMEOUT 120)
    endif()
endfunction()

# zib_bench(NAME SOURCES ... LINKS ...): a benchmark program bench_NAME that ./bench/run starts. It builds the target
# "benchmarks", which has all that it needs.
function(zib_bench name)
    cmake_parse_arguments(BENCH "" "" "SOURCES;LINKS" ${ARGN})
    add_executable(bench_${name} ${BENCH_SOURCES})
    target_link_libraries(bench_${name} PRIVATE ${BENCH_LINKS})
    set_target_properties(bench_${name} PROPERTIES AUTOMOC ON RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bench)
    add_dependencies(benchmarks bench_${name})
endfunction()
