find_package(GTest REQUIRED)
find_package(Python3 REQUIRED COMPONENTS Interpreter)
include(GoogleTest)

# bmci2c_unit_test(NAME SOURCES ... LINKS ... [ENVIRONMENT "NAME=value" ...])
#
# One test program; each of its tests is a test of its own for ctest, named NAME.Suite.Test.
function(bmci2c_unit_test name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS;ENVIRONMENT" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE ${ARG_LINKS} GTest::gmock GTest::gtest_main)
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/tests")
  gtest_discover_tests(${name}
    TEST_PREFIX "${name}."
    DISCOVERY_TIMEOUT 60
    PROPERTIES TIMEOUT 120 ENVIRONMENT "${ARG_ENVIRONMENT}")
endfunction()
