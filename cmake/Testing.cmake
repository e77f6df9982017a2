find_package(GTest REQUIRED)
find_package(Python3 REQUIRED COMPONENTS Interpreter)
include(GoogleTest)

set(BMCI2C_TEST_PREFIX "" CACHE STRING "Stands before the name of each test, to tell build folders apart")

# Every test runs with it. GCC 12's leak checker crashes now and then when it walks the thread-local
# memory of libraries that were loaded at run time; this keeps it from doing so.
set(BMCI2C_TEST_ENVIRONMENT "")
if(BMCI2C_SANITIZERS)
  set(BMCI2C_TEST_ENVIRONMENT "ASAN_OPTIONS=intercept_tls_get_addr=0")
endif()

# Optimising the tests themselves would double the time of a build, and looking for undefined behaviour
# in them adds a third. The code under test is compiled with every sanitizer.
set(BMCI2C_TEST_OPTIONS -O0 -U_FORTIFY_SOURCE)
if("undefined" IN_LIST BMCI2C_SANITIZER_LIST)
  list(APPEND BMCI2C_TEST_OPTIONS -fno-sanitize=undefined)
endif()

# GoogleTest's headers, compiled once for all test programs: they take longer than most tests.
file(CONFIGURE OUTPUT "${CMAKE_BINARY_DIR}/tests/test_headers.cpp" CONTENT "")
add_library(bmci2c_test_headers OBJECT "${CMAKE_BINARY_DIR}/tests/test_headers.cpp")
target_precompile_headers(bmci2c_test_headers PRIVATE <gmock/gmock.h> <gtest/gtest.h>)
target_link_libraries(bmci2c_test_headers PRIVATE GTest::gmock GTest::gtest)
# As the programs are compiled that use it, or the compiler refuses it.
set_target_properties(bmci2c_test_headers PROPERTIES POSITION_INDEPENDENT_CODE OFF)
target_compile_options(bmci2c_test_headers PRIVATE -fPIE ${BMCI2C_TEST_OPTIONS})

# bmci2c_unit_test(NAME SOURCES ... LINKS ... [ENVIRONMENT "NAME=value" ...])
#
# One test program; each of its tests is a test of its own for ctest, named NAME.Suite.Test.
# Several files are compiled as one, so names in anonymous namespaces must differ within a program.
function(bmci2c_unit_test name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS;ENVIRONMENT" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE ${ARG_LINKS} GTest::gmock GTest::gtest_main)
  # A fixture in an anonymous namespace is what the warning calls one of an included file.
  target_compile_options(${name} PRIVATE ${BMCI2C_TEST_OPTIONS} -Wno-subobject-linkage)
  target_precompile_headers(${name} REUSE_FROM bmci2c_test_headers)
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/tests"
    UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 8)
  gtest_discover_tests(${name}
    TEST_PREFIX "${BMCI2C_TEST_PREFIX}${name}."
    NO_PRETTY_VALUES
    DISCOVERY_TIMEOUT 60
    PROPERTIES TIMEOUT 120 ENVIRONMENT "${BMCI2C_TEST_ENVIRONMENT};${ARG_ENVIRONMENT}")
endfunction()

# bmci2c_pytest(NAME FOLDER <folder of the tests> [EXCEPT FILE ...] [ENVIRONMENT "NAME=value" ...])
#
# Each test file of the folder becomes a test for ctest, named NAME.FILE: starting Python for each
# test function would take longer than most of them. tests/total.py counts the functions.
function(bmci2c_pytest name)
  cmake_parse_arguments(ARG "" "FOLDER" "EXCEPT;ENVIRONMENT" ${ARGN})
  file(GLOB files RELATIVE "${ARG_FOLDER}" CONFIGURE_DEPENDS "${ARG_FOLDER}/test_*.py")
  list(TRANSFORM files REPLACE "^test_(.*)\\.py$" "\\1")
  if(ARG_EXCEPT)
    list(REMOVE_ITEM files ${ARG_EXCEPT})
  endif()
  foreach(what IN LISTS files)
    set(file "test_${what}.py")
    set(test "${BMCI2C_TEST_PREFIX}${name}.${what}")
    add_test(NAME ${test}
      COMMAND "${Python3_EXECUTABLE}" -m pytest -q -rs -p no:cacheprovider "${ARG_FOLDER}/${file}")
    file(SIZE "${ARG_FOLDER}/${file}" size)
    # The cost lets ctest begin with the files that take longest.
    set_tests_properties(${test} PROPERTIES COST ${size} TIMEOUT 1200
      ENVIRONMENT "PYTHONDONTWRITEBYTECODE=1;${BMCI2C_TEST_ENVIRONMENT};${ARG_ENVIRONMENT}")
  endforeach()
endfunction()
