# What every target of the project is compiled with, and the two ways to declare one.

add_library(quarlin_flags INTERFACE)
target_compile_features(quarlin_flags INTERFACE cxx_std_20)
target_compile_options(
  quarlin_flags
  INTERFACE -Wall
            -Wextra
            -Wconversion
            -Wshadow
            -Werror
            # The arithmetic is exact by contract: a product is rounded before it is added.
            -ffp-contract=off)
target_compile_definitions(quarlin_flags INTERFACE QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII
                                                   QT_NO_KEYWORDS QT_DISABLE_DEPRECATED_BEFORE=0x060400)
if(QUARLIN_SANITIZE)
  # What g++ concludes about array bounds is wrong in instrumented code; the plain builds keep it an error.
  target_compile_options(quarlin_flags INTERFACE -Wno-array-bounds)
  target_compile_options(quarlin_flags INTERFACE -fsanitize=${QUARLIN_SANITIZE} -fno-omit-frame-pointer
                                                 -fno-sanitize-recover=all)
  target_link_options(quarlin_flags INTERFACE -fsanitize=${QUARLIN_SANITIZE})
endif()

# quarlin_room(ROOM SOURCES ... LINK ... [PRIVATE_LINK ...] [PIXEL_LOOPS]): the static library of the folder src/ROOM.
# LINK names the rooms that it may include and any other libraries that its headers need; the test Rooms compares the
# includes with it. PIXEL_LOOPS asks for every optimization that leaves the arithmetic alone.
function(quarlin_room room)
  cmake_parse_arguments(ROOM "PIXEL_LOOPS" "" "SOURCES;LINK;PRIVATE_LINK" ${ARGN})
  string(REPLACE "/" "_" name ${room})
  add_library(quarlin_${name} STATIC ${ROOM_SOURCES})
  add_library(quarlin::${name} ALIAS quarlin_${name})
  target_include_directories(quarlin_${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(quarlin_${name} PUBLIC ${ROOM_LINK} PRIVATE quarlin_flags ${ROOM_PRIVATE_LINK})
  if(ROOM_PIXEL_LOOPS)
    target_compile_options(quarlin_${name} PRIVATE $<$<NOT:$<CONFIG:Debug>>:-O3>)
  endif()
  set(rooms ${ROOM_LINK})
  list(FILTER rooms INCLUDE REGEX "^quarlin::")
  list(TRANSFORM rooms REPLACE "^quarlin::" "")
  list(JOIN rooms " " rooms)
  set_property(GLOBAL APPEND PROPERTY QUARLIN_ROOMS "${room}: ${rooms}")
endfunction()

# Writes the rooms and what each is linked to, a line each, for the test Rooms.
function(quarlin_write_rooms file)
  get_property(rooms GLOBAL PROPERTY QUARLIN_ROOMS)
  list(JOIN rooms "\n" rooms)
  file(WRITE ${file} "${rooms}\n")
endfunction()

# quarlin_test(NAME SOURCES ... LINK ...): one GoogleTest program; each of its tests is a ctest test, named without
# the printed value of its parameter, which may hold addresses and so change from run to run.
function(quarlin_test name)
  cmake_parse_arguments(TEST "QT_MAIN" "" "SOURCES;LINK;PROPERTIES" ${ARGN})
  add_executable(${name} ${TEST_SOURCES})
  target_link_libraries(${name} PRIVATE ${TEST_LINK} quarlin_flags GTest::gmock)
  if(NOT TEST_QT_MAIN)
    target_link_libraries(${name} PRIVATE GTest::gmock_main)
  endif()
  gtest_discover_tests(${name} NO_PRETTY_VALUES PROPERTIES TIMEOUT 300 ${TEST_PROPERTIES} DISCOVERY_TIMEOUT 60)
endfunction()
