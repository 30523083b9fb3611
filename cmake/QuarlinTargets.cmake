# The flags of every target of the project, and the functions that declare rooms and tests.

add_library(quarlin_flags INTERFACE)
target_compile_features(quarlin_flags INTERFACE cxx_std_20)
target_compile_options(
  quarlin_flags
  INTERFACE -Wall
            -Wextra
            -Wconversion
            -Wshadow
            $<$<BOOL:${QUARLIN_WARNINGS_AS_ERRORS}>:-Werror>
            # The arithmetic is exact by contract: a product is rounded before it is added.
            -ffp-contract=off)
target_compile_definitions(quarlin_flags INTERFACE QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII
                                                   QT_NO_KEYWORDS QT_DISABLE_DEPRECATED_BEFORE=0x060400)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND NOT QUARLIN_SANITIZE)
  include(QuarlinHardening)
endif()
if(QUARLIN_SANITIZE)
  # In instrumented code g++ reports array bounds that are not exceeded. The plain builds keep the warning.
  target_compile_options(quarlin_flags INTERFACE -Wno-array-bounds)
  target_compile_options(quarlin_flags INTERFACE -fsanitize=${QUARLIN_SANITIZE} -fno-omit-frame-pointer
                                                 -fno-sanitize-recover=all)
  target_link_options(quarlin_flags INTERFACE -fsanitize=${QUARLIN_SANITIZE})
endif()

# quarlin_room(ROOM SOURCES ... LINK ... [PRIVATE_LINK ...] [PIXEL_LOOPS] [MODULE]): the static library of the folder
# src/ROOM. LINK names the rooms that it may include and any other libraries that its headers need, PRIVATE_LINK those
# that only its sources need; the test Rooms compares the includes with both. PIXEL_LOOPS turns on all optimizations that
# keep the arithmetic exact. With MODULE it is a library that the program loads while it runs.
function(quarlin_room room)
  cmake_parse_arguments(ROOM "PIXEL_LOOPS;MODULE" "" "SOURCES;LINK;PRIVATE_LINK" ${ARGN})
  string(REPLACE "/" "_" name ${room})
  if(ROOM_MODULE)
    add_library(quarlin_${name} MODULE ${ROOM_SOURCES})
  else()
    add_library(quarlin_${name} STATIC ${ROOM_SOURCES})
  endif()
  add_library(quarlin::${name} ALIAS quarlin_${name})
  target_include_directories(quarlin_${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(quarlin_${name} PUBLIC ${ROOM_LINK} PRIVATE quarlin_flags ${ROOM_PRIVATE_LINK})
  if(ROOM_PIXEL_LOOPS)
    target_compile_options(quarlin_${name} PRIVATE $<$<NOT:$<CONFIG:Debug>>:-O3>)
  endif()
  foreach(links ROOM_LINK ROOM_PRIVATE_LINK)
    list(FILTER ${links} INCLUDE REGEX "^quarlin::")
    list(TRANSFORM ${links} REPLACE "^quarlin::" "")
    list(JOIN ${links} " " ${links})
  endforeach()
  set_property(GLOBAL APPEND PROPERTY QUARLIN_ROOMS "${room}: ${ROOM_LINK} | ${ROOM_PRIVATE_LINK}")
endfunction()

# quarlin_resources(TARGET NAME ...): like qt_add_resources(), in the form without the times of the files, so that the same
# files give the same program.
function(quarlin_resources)
  qt_add_resources(${ARGN} OPTIONS --format-version 1 --compress-algo zlib)
endfunction()

# Writes the rooms and the rooms that each is linked to, publicly | privately, a line each, for the test Rooms.
function(quarlin_write_rooms file)
  get_property(rooms GLOBAL PROPERTY QUARLIN_ROOMS)
  list(JOIN rooms "\n" rooms)
  file(WRITE ${file} "${rooms}\n")
endfunction()

# quarlin_test(NAME SOURCES ... LINK ...): one GoogleTest program. Each of its tests is a ctest test. Its name leaves out
# the printed value of its parameter, which may contain addresses and so differ from run to run.
function(quarlin_test name)
  cmake_parse_arguments(TEST "QT_MAIN" "" "SOURCES;LINK;PROPERTIES" ${ARGN})
  add_executable(${name} ${TEST_SOURCES})
  target_link_libraries(${name} PRIVATE ${TEST_LINK} quarlin_flags quarlin_test_flags GTest::gmock)
  if(TARGET quarlin_test_headers)
    target_precompile_headers(${name} REUSE_FROM quarlin_test_headers)
  endif()
  if(NOT TEST_QT_MAIN)
    target_link_libraries(${name} PRIVATE GTest::gmock_main)
  endif()
  gtest_discover_tests(${name} NO_PRETTY_VALUES PROPERTIES TIMEOUT 300 ${TEST_PROPERTIES} DISCOVERY_TIMEOUT 60)
endfunction()
