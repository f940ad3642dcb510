# dova_test(name SOURCES ... LINK ...): one GoogleTest program per room; every case is a ctest test, labelled
# with the program's name.
include(GoogleTest)
find_package(GTest REQUIRED)
function(dova_test name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR}/tests)
  target_link_libraries(${name} PRIVATE ${ARG_LINK} GTest::gmock GTest::gtest_main)
  # Rows of tables have names of their own.
  gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST NO_PRETTY_VALUES
    PROPERTIES TIMEOUT 120 LABELS ${name})
endfunction()
