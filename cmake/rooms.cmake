# How a room becomes a target.
#
# Two walls keep the rooms apart, and both stop the build:
# - Logic rooms are C++20 and the standard library. They never link Qt, and Qt's include folders come only with
#   its targets: a Qt include in a logic room does not compile.
# - A room may include only its own headers and those of the rooms that its USES names
#   (cmake/check_includes.cmake).

add_library(halden_warnings INTERFACE)
target_compile_options(halden_warnings INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  target_compile_options(halden_warnings INTERFACE -Wno-restrict)  # false alarms on std::string's operator+ in GCC 12
endif()
if(HALDEN_SANITIZE)
  target_compile_options(halden_warnings INTERFACE -Wno-maybe-uninitialized)  # false alarms in <regex> when instrumented
  target_compile_options(halden_warnings INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(halden_warnings INTERFACE -fsanitize=address,undefined)
endif()

# halden_check_includes(TARGET FOLDER USES rooms... FILES files...): before the target is built, its files are
# searched for includes of headers of other rooms.
function(halden_check_includes target folder)
  cmake_parse_arguments(CHECK "" "" "USES;FILES" ${ARGN})
  set(allowed ${folder})
  foreach(room ${CHECK_USES})
    get_target_property(used halden_${room} HALDEN_FOLDER)
    list(APPEND allowed ${used})
  endforeach()
  set(stamp ${CMAKE_CURRENT_BINARY_DIR}/${target}.includes)
  file(GENERATE OUTPUT ${stamp}.args CONTENT "set(src [[${PROJECT_SOURCE_DIR}/src]])\nset(allowed [[${allowed}]])\nset(files [[${CHECK_FILES}]])\n")
  add_custom_command(
    OUTPUT ${stamp}
    COMMAND ${CMAKE_COMMAND} -P ${PROJECT_SOURCE_DIR}/cmake/check_includes.cmake ${stamp}.args
    COMMAND ${CMAKE_COMMAND} -E touch ${stamp}
    DEPENDS ${CHECK_FILES} ${stamp}.args ${PROJECT_SOURCE_DIR}/cmake/check_includes.cmake
    COMMENT "Checking the includes of ${target}"
    VERBATIM)
  add_custom_target(${target}_includes DEPENDS ${stamp})
  add_dependencies(${target} ${target}_includes)
endfunction()

# halden_room(NAME [FOLDER dir] [USES rooms...]): a logic library from the .cpp files in the root of its folder.
function(halden_room name)
  cmake_parse_arguments(ROOM "" "FOLDER" "USES" ${ARGN})
  if(NOT ROOM_FOLDER)
    set(ROOM_FOLDER ${name})
  endif()
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${ROOM_FOLDER}/*.cpp)
  list(FILTER sources EXCLUDE REGEX "main\\.cpp$")
  file(GLOB headers CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${ROOM_FOLDER}/*.h)
  add_library(halden_${name} STATIC ${sources})
  set_target_properties(halden_${name} PROPERTIES HALDEN_FOLDER ${ROOM_FOLDER})
  target_include_directories(halden_${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  halden_check_includes(halden_${name} ${ROOM_FOLDER} USES ${ROOM_USES} FILES ${sources} ${headers})
  list(TRANSFORM ROOM_USES PREPEND halden_)
  target_link_libraries(halden_${name} PUBLIC ${ROOM_USES} PRIVATE halden_warnings)
endfunction()

# halden_qt_room(NAME FOLDER dir QT components... [USES rooms...]): the same for a folder of widgets or platform code.
function(halden_qt_room name)
  cmake_parse_arguments(ROOM "" "FOLDER" "USES;QT" ${ARGN})
  halden_room(${name} FOLDER ${ROOM_FOLDER} USES ${ROOM_USES})
  list(TRANSFORM ROOM_QT PREPEND Qt6::)
  target_link_libraries(halden_${name} PUBLIC ${ROOM_QT})
  set_target_properties(halden_${name} PROPERTIES AUTOMOC ON AUTORCC ON)
  target_compile_definitions(halden_${name} PUBLIC QT_NO_KEYWORDS QT_NO_CAST_FROM_ASCII)
endfunction()

# halden_qt_library(NAME FOLDER dir QT components... USES rooms...): a folder and all rooms it uses as a library that a
# program loads when it needs it.
function(halden_qt_library name)
  cmake_parse_arguments(LIBRARY "" "FOLDER" "USES;QT" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${LIBRARY_FOLDER}/*.cpp)
  file(GLOB headers CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${LIBRARY_FOLDER}/*.h)
  add_library(${name} MODULE ${sources})
  set_target_properties(${name} PROPERTIES PREFIX "" LIBRARY_OUTPUT_DIRECTORY ${CMAKE_RUNTIME_OUTPUT_DIRECTORY})
  halden_check_includes(${name} ${LIBRARY_FOLDER} USES ${LIBRARY_USES} FILES ${sources} ${headers})
  list(TRANSFORM LIBRARY_USES PREPEND halden_)
  list(TRANSFORM LIBRARY_QT PREPEND Qt6::)
  set_target_properties(${LIBRARY_USES} PROPERTIES POSITION_INDEPENDENT_CODE ON)
  target_link_libraries(${name} PRIVATE ${LIBRARY_USES} ${LIBRARY_QT} halden_warnings)
  install(TARGETS ${name} LIBRARY DESTINATION lib/halden)
endfunction()

# halden_program(NAME FOLDER dir USES rooms...): a program from the main.cpp of a folder.
function(halden_program name)
  cmake_parse_arguments(PROGRAM "" "FOLDER" "USES" ${ARGN})
  set(main ${CMAKE_CURRENT_SOURCE_DIR}/${PROGRAM_FOLDER}/main.cpp)
  add_executable(${name} ${main})
  halden_check_includes(${name} ${PROGRAM_FOLDER} USES ${PROGRAM_USES} FILES ${main})
  list(TRANSFORM PROGRAM_USES PREPEND halden_)
  target_link_libraries(${name} PRIVATE ${PROGRAM_USES} halden_warnings CLI11::CLI11)
  target_compile_definitions(${name} PRIVATE HALDEN_VERSION="${PROJECT_VERSION}")
  install(TARGETS ${name} RUNTIME DESTINATION bin)
endfunction()

# halden_test(NAME [TIMEOUT s] USES rooms...): one test program from tests/NAME/*.cpp.
function(halden_test name)
  cmake_parse_arguments(TEST "" "TIMEOUT" "USES" ${ARGN})
  if(NOT TEST_TIMEOUT)
    set(TEST_TIMEOUT 120)
  endif()
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${name}/*.cpp)
  if(NOT sources)
    return()
  endif()
  add_executable(test_${name} ${sources})
  list(TRANSFORM TEST_USES PREPEND halden_)
  target_link_libraries(test_${name} PRIVATE ${TEST_USES} halden_warnings GTest::gtest)
  if(NOT EXISTS ${CMAKE_CURRENT_SOURCE_DIR}/${name}/main.cpp)
    target_link_libraries(test_${name} PRIVATE GTest::gtest_main)
  endif()
  set_target_properties(test_${name} PROPERTIES AUTOMOC ON)
  target_compile_definitions(test_${name} PRIVATE HALDEN_BIN_DIR="${CMAKE_RUNTIME_OUTPUT_DIRECTORY}")
  gtest_discover_tests(test_${name} TEST_PREFIX "${name}." DISCOVERY_TIMEOUT 60
                       PROPERTIES TIMEOUT ${TEST_TIMEOUT} ENVIRONMENT "QT_QPA_PLATFORM=offscreen"
                       LABELS ${name})
endfunction()
include(GoogleTest)
