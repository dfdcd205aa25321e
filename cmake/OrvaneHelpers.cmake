# orvane_add_test(<name> SOURCES <files...> LIBS <targets...>)
# Builds one GoogleTest program and registers its test cases with ctest. Tests run headless in
# their scratch directory and find it and the source tree in the environment variables
# ORVANE_TEST_SCRATCH and ORVANE_SOURCE_DIR (see OrvaneTestEnvironment.cpp).
function(orvane_add_test name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LIBS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES} ${PROJECT_SOURCE_DIR}/cmake/OrvaneTestEnvironment.cpp)
  target_link_libraries(${name} PRIVATE ${ARG_LIBS} GTest::gtest GTest::gtest_main)
  set(scratch ${CMAKE_BINARY_DIR}/test-scratch/${name})
  file(MAKE_DIRECTORY ${scratch})
  target_compile_definitions(${name} PRIVATE
    ORVANE_SOURCE_DIR_PATH="${PROJECT_SOURCE_DIR}"
    ORVANE_TEST_SCRATCH_PATH="${scratch}")
  gtest_discover_tests(${name}
    DISCOVERY_MODE PRE_TEST
    DISCOVERY_TIMEOUT 60
    WORKING_DIRECTORY ${scratch})
endfunction()

# orvane_add_benchmark(<name> SOURCES <files...> LIBS <targets...>)
# Builds one Google Benchmark program; benchmarks are never run by ctest.
function(orvane_add_benchmark name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LIBS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE ${ARG_LIBS} benchmark::benchmark)
endfunction()
