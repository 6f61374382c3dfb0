# What every target of the house shares: warnings, sanitizers, and how a room and its tests are declared.

add_library(ostrivane_warnings INTERFACE)
add_library(Ostrivane::warnings ALIAS ostrivane_warnings)
target_compile_options(ostrivane_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align -Wunused
    -Wimplicit-fallthrough -Werror
    # g++ 12 sees overlapping copies inside its own std::string.
    $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)

if(OSTRIVANE_SANITIZE)
    # g++ loses track of values under the sanitizers' own branches and warns about code it made itself.
    target_compile_options(ostrivane_warnings INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
    add_compile_options(-fsanitize=${OSTRIVANE_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${OSTRIVANE_SANITIZE})
endif()
if(OSTRIVANE_SANITIZE STREQUAL "thread")
    # Kernels that scatter addresses widely leave ThreadSanitizer no room, where they may be asked not to.
    execute_process(COMMAND setarch --addr-no-randomize true RESULT_VARIABLE refused OUTPUT_QUIET ERROR_QUIET)
    if(refused EQUAL 0)
        set(test_launcher setarch --addr-no-randomize)
    endif()
endif()

# ostrivane_room(NAME SOURCES a.cpp b.cpp [USES platform shell] [PRIVATE_USES ...])
# declares the static library of the room in src/NAME; USES are the rooms its headers include.
function(ostrivane_room name)
    cmake_parse_arguments(ROOM "" "" "SOURCES;USES;PRIVATE_USES" ${ARGN})
    add_library(ostrivane_${name} STATIC ${ROOM_SOURCES})
    add_library(Ostrivane::${name} ALIAS ostrivane_${name})
    target_include_directories(ostrivane_${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
    list(TRANSFORM ROOM_USES PREPEND Ostrivane::)
    list(TRANSFORM ROOM_PRIVATE_USES PREPEND Ostrivane::)
    target_link_libraries(ostrivane_${name} PUBLIC ${ROOM_USES} PRIVATE ${ROOM_PRIVATE_USES} Ostrivane::warnings)
endfunction()

# ostrivane_room_tests(NAME SOURCES a_test.cpp [USES room ...]) declares the test program of a room.
function(ostrivane_room_tests name)
    cmake_parse_arguments(ROOM "" "" "SOURCES;USES" ${ARGN})
    add_executable(${name}_tests ${ROOM_SOURCES})
    list(TRANSFORM ROOM_USES PREPEND Ostrivane::)
    target_include_directories(${name}_tests PRIVATE ${PROJECT_SOURCE_DIR}/tests)
    target_compile_definitions(${name}_tests PRIVATE OSTRIVANE_SOURCE_DIR="${PROJECT_SOURCE_DIR}")
    target_link_libraries(${name}_tests PRIVATE ${ROOM_USES} GTest::gmock_main Ostrivane::warnings)
    if(OSTRIVANE_TEST_PREFIX)
        add_test(NAME ${OSTRIVANE_TEST_PREFIX}${name} COMMAND ${test_launcher} $<TARGET_FILE:${name}_tests>)
        set_tests_properties(${OSTRIVANE_TEST_PREFIX}${name} PROPERTIES TIMEOUT 300)
    else()
        gtest_discover_tests(${name}_tests DISCOVERY_TIMEOUT 120 PROPERTIES TIMEOUT 300)
    endif()
endfunction()

# The same for a room with Qt; headers with Q_OBJECT stand among the SOURCES' folders and are found by themselves.
function(ostrivane_qt_room name)
    ostrivane_room(${name} ${ARGN})
    set_target_properties(ostrivane_${name} PROPERTIES AUTOMOC ON AUTORCC ON)
    target_compile_definitions(ostrivane_${name} PUBLIC QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS)
    target_link_libraries(ostrivane_${name} PUBLIC Qt6::Widgets PRIVATE Qt6::Svg)
endfunction()

# The tests of such a room: they have a main of their own, which makes the application.
function(ostrivane_qt_room_tests name)
    cmake_parse_arguments(ROOM "" "" "SOURCES;USES" ${ARGN})
    add_executable(${name}_tests ${ROOM_SOURCES})
    list(TRANSFORM ROOM_USES PREPEND Ostrivane::)
    set_target_properties(${name}_tests PROPERTIES AUTOMOC ON)
    target_include_directories(${name}_tests PRIVATE ${PROJECT_SOURCE_DIR}/tests)
    target_compile_definitions(${name}_tests PRIVATE OSTRIVANE_SOURCE_DIR="${PROJECT_SOURCE_DIR}")
    target_link_libraries(${name}_tests PRIVATE ${ROOM_USES} Qt6::Test GTest::gmock Ostrivane::warnings)
    gtest_discover_tests(${name}_tests DISCOVERY_TIMEOUT 120
        PROPERTIES TIMEOUT 300 ENVIRONMENT "QT_QPA_PLATFORM=offscreen")
endfunction()
