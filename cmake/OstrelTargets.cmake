# What every target of this project has in common: language level, warnings, sanitizers, include root,
# and the two ways in which a folder becomes part of a library.
include(GNUInstallDirs)
find_package(Threads REQUIRED)

add_library(ostrel_settings INTERFACE)
target_compile_features(ostrel_settings INTERFACE cxx_std_20)
target_compile_options(ostrel_settings INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion -Wnon-virtual-dtor
  -Woverloaded-virtual -Wcast-qual -Wformat=2 -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
  target_compile_options(ostrel_settings INTERFACE -Wthread-safety)
endif()
if(OSTREL_SANITIZE)
  target_compile_options(ostrel_settings INTERFACE
    -fsanitize=${OSTREL_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(ostrel_settings INTERFACE -fsanitize=${OSTREL_SANITIZE})
endif()

if(OSTREL_BUILD_FUZZERS)
  target_compile_options(ostrel_settings INTERFACE -fsanitize=fuzzer-no-link)
endif()

# ostrel_folder(<target> SOURCES ... [DEPENDS ...]): one folder of the source tree, compiled once as objects.
# Tests of private classes link the objects of the folders that they need.
function(ostrel_folder target)
  cmake_parse_arguments(ARG "" "" "SOURCES;DEPENDS" ${ARGN})
  add_library(${target} OBJECT ${ARG_SOURCES})
  target_include_directories(${target} PUBLIC $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>)
  target_link_libraries(${target} PRIVATE $<BUILD_INTERFACE:ostrel_settings> PUBLIC Threads::Threads ${ARG_DEPENDS})
  set_target_properties(${target} PROPERTIES
    CXX_EXTENSIONS OFF POSITION_INDEPENDENT_CODE ON
    CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON)
endfunction()

# ostrel_library(<name> FOLDERS ... [PUBLIC ...] [PRIVATE ...]): the library ostrel::<name>, made of folders.
# FOLDERS may be empty folder targets; PRIVATE are libraries that the folders use and users never see.
function(ostrel_library name)
  cmake_parse_arguments(ARG "" "" "FOLDERS;PUBLIC;PRIVATE" ${ARGN})
  set(target ostrel_${name})
  set(objects)
  foreach(folder IN LISTS ARG_FOLDERS)
    list(APPEND objects $<TARGET_OBJECTS:${folder}>)
  endforeach()
  add_library(${target} ${objects})
  add_library(ostrel::${name} ALIAS ${target})
  target_compile_features(${target} PUBLIC cxx_std_20)
  target_include_directories(${target} PUBLIC
    $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}> $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
  target_link_libraries(${target} PUBLIC Threads::Threads ${ARG_PUBLIC} PRIVATE ${ARG_PRIVATE})
  if(OSTREL_SANITIZE)
    target_link_options(${target} PUBLIC -fsanitize=${OSTREL_SANITIZE})
  endif()
  set_target_properties(${target} PROPERTIES
    EXPORT_NAME ${name} OUTPUT_NAME ostrel-${name} LINKER_LANGUAGE CXX INSTALL_RPATH "$ORIGIN"
    VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR})
  set_property(GLOBAL APPEND PROPERTY OSTREL_LIBRARIES ${target})
endfunction()

# ostrel_program(<target> SOURCES ... LIBRARIES ...): an example, a benchmark or a check.
function(ostrel_program target)
  cmake_parse_arguments(ARG "" "" "SOURCES;LIBRARIES" ${ARGN})
  add_executable(${target} ${ARG_SOURCES})
  target_include_directories(${target} PRIVATE ${PROJECT_SOURCE_DIR})
  target_link_libraries(${target} PRIVATE $<BUILD_INTERFACE:ostrel_settings> ${ARG_LIBRARIES})
  set_target_properties(${target} PROPERTIES CXX_EXTENSIONS OFF)
endfunction()

# ostrel_test(<target> LABELS ... SOURCES ... LIBRARIES ... [TIMEOUT s]): a GoogleTest program; each of its
# tests becomes a CTest test with the labels.
function(ostrel_test target)
  cmake_parse_arguments(ARG "" "TIMEOUT" "LABELS;SOURCES;LIBRARIES" ${ARGN})
  if(NOT ARG_TIMEOUT)
    set(ARG_TIMEOUT 120)
  endif()
  ostrel_program(${target} SOURCES ${ARG_SOURCES} LIBRARIES ${ARG_LIBRARIES} GTest::gtest_main GTest::gmock)
  if("threads" IN_LIST ARG_LABELS)
    if(NOT TARGET thread_tests)
      add_custom_target(thread_tests) # what the thread sanitizer is for
    endif()
    add_dependencies(thread_tests ${target})
  endif()
  gtest_discover_tests(${target} DISCOVERY_TIMEOUT 60 DISCOVERY_MODE PRE_TEST
    TEST_LIST ${target}_tests PROPERTIES TIMEOUT ${ARG_TIMEOUT})
  if(TARGET ostrel_sanitizer_options)
    target_sources(${target} PRIVATE $<TARGET_OBJECTS:ostrel_sanitizer_options>)
  endif()
  # A list of labels does not survive as one of the PROPERTIES above.
  set(properties "${CMAKE_CURRENT_BINARY_DIR}/${target}_properties.cmake")
  file(CONFIGURE OUTPUT "${properties}" @ONLY CONTENT
    "set_tests_properties(\${@target@_tests} PROPERTIES LABELS \"@ARG_LABELS@\")\n")
  set_property(DIRECTORY APPEND PROPERTY TEST_INCLUDE_FILES "${properties}")
endfunction()

# ostrel_command_test(<name> LABELS ... COMMAND ... [TIMEOUT s]): a CTest test that is a command.
function(ostrel_command_test name)
  cmake_parse_arguments(ARG "" "TIMEOUT" "LABELS;COMMAND" ${ARGN})
  if(NOT ARG_TIMEOUT)
    set(ARG_TIMEOUT 120)
  endif()
  ostrel_sanitizer_environment(environment)
  add_test(NAME ${name} COMMAND ${ARG_COMMAND})
  set_tests_properties(${name} PROPERTIES LABELS "${ARG_LABELS}" TIMEOUT ${ARG_TIMEOUT} ENVIRONMENT "${environment}")
endfunction()

# What the sanitizers are not to report: faults of libraries that are not ours. For commands; test programs know it.
function(ostrel_sanitizer_environment variable)
  set(folder "${PROJECT_SOURCE_DIR}/tests/sanitizers")
  set(${variable}
    "LSAN_OPTIONS=suppressions=${folder}/leaks.txt:print_suppressions=0"
    "TSAN_OPTIONS=suppressions=${folder}/threads.txt" PARENT_SCOPE)
endfunction()
