# dova_test(name SOURCES ... LINK ... [ROWS suites]): one GoogleTest program per room; every case is a ctest test,
# labelled with the program's name. Of suites that read hundreds of rows from files, all rows are one ctest test: a
# process each would take more time than the rows do. A failure names its row.
include(GoogleTest)
find_package(GTest REQUIRED)
function(dova_test name)
  cmake_parse_arguments(ARG "" "ROWS" "SOURCES;LINK" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  if("${ARG_LINK}" MATCHES "web_test_support|wire_rows|Qt5::Core")
    dova_use_precompiled(${name} json_test_headers)
  elseif("${ARG_LINK}" MATCHES "dova::gateway|dova_link|dova_serve")
    dova_use_precompiled(${name} net_test_headers)
  else()
    dova_use_precompiled(${name} test_headers)
  endif()
  target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR}/tests)
  target_link_libraries(${name} PRIVATE ${ARG_LINK} GTest::gmock GTest::gtest_main)
  # Rows of tables have names of their own.
  set(single "*")
  if(ARG_ROWS)
    set(single "-${ARG_ROWS}")
    add_test(NAME ${name}.rows COMMAND ${name} --gtest_filter=${ARG_ROWS})
    set_tests_properties(${name}.rows PROPERTIES TIMEOUT 120 LABELS ${name})
  endif()
  gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST NO_PRETTY_VALUES TEST_FILTER ${single}
    PROPERTIES TIMEOUT 120 LABELS ${name})
endfunction()
