# Headers of other libraries parsed once for many sources: parsing them takes longer than most sources themselves.
# What a source uses it includes all the same; clang-tidy and the builds for users read no precompiled headers.
option(DOVA_PRECOMPILED "Precompile the headers of other libraries" OFF)

set(s_standard <algorithm> <functional> <map> <memory> <mutex> <optional> <stdexcept> <string> <variant> <vector>)
set(s_json <QJsonArray> <QJsonDocument> <QJsonObject> <boost/container/flat_set.hpp>
  <boost/multi_index/hashed_index.hpp> <boost/multi_index/member.hpp> <boost/multi_index/ordered_index.hpp>
  <boost/multi_index_container.hpp>)
set(s_net <boost/asio.hpp> <boost/beast/core.hpp> <boost/beast/http.hpp> <boost/beast/websocket.hpp>)

# dova_precompiled_set(name headers ... LINK libraries [OPTIONS compiler options])
function(dova_precompiled_set name)
  cmake_parse_arguments(ARG "" "" "LINK;OPTIONS" ${ARGN})
  file(CONFIGURE OUTPUT ${CMAKE_BINARY_DIR}/nothing.cpp CONTENT "")
  add_library(${name} OBJECT EXCLUDE_FROM_ALL ${CMAKE_BINARY_DIR}/nothing.cpp)
  target_link_libraries(${name} PRIVATE ${ARG_LINK})
  target_compile_options(${name} PRIVATE ${ARG_OPTIONS})
  target_precompile_headers(${name} PRIVATE ${ARG_UNPARSED_ARGUMENTS})
endfunction()

if(DOVA_PRECOMPILED)
  find_package(Qt5 5.15 REQUIRED COMPONENTS Core)
  dova_precompiled_set(standard_headers ${s_standard})
  dova_precompiled_set(json_headers ${s_standard} ${s_json} LINK Qt5::Core Boost::headers)
  dova_precompiled_set(net_headers ${s_standard} ${s_net} LINK Boost::headers)
  if(DOVA_TESTS)
    find_package(GTest REQUIRED)
    dova_precompiled_set(test_headers ${s_standard} <gmock/gmock.h> LINK GTest::gmock OPTIONS ${DOVA_TEST_OPTIONS})
    dova_precompiled_set(json_test_headers ${s_standard} ${s_json} <gmock/gmock.h>
      LINK Qt5::Core Boost::headers GTest::gmock OPTIONS ${DOVA_TEST_OPTIONS})
    dova_precompiled_set(net_test_headers ${s_standard} ${s_net} <gmock/gmock.h> LINK Boost::headers GTest::gmock
      OPTIONS ${DOVA_TEST_OPTIONS})
  endif()
endif()

# dova_use_precompiled(target set). A set with Qt's headers is for targets that link Qt. Programs are compiled like
# libraries then, because one set serves both.
function(dova_use_precompiled target set)
  if(DOVA_PRECOMPILED)
    target_precompile_headers(${target} REUSE_FROM ${set})
    target_compile_options(${target} PRIVATE -fPIC)
  endif()
endfunction()

# Where sources of a target are compiled together (CMAKE_UNITY_BUILD), these stay by themselves: what is nameless in
# them has names that a neighbour's has, too.
function(dova_compile_alone)
  set_source_files_properties(${ARGN} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
endfunction()
