# Native targets: the console demo and UCI engine, unit tests (CTest), benchmarks, fuzz targets.

# The think suite timed by a plain program with its own main, checked against the golden file.
# The 32-bit build (preset bench32) makes this program alone, since Debian has no i386 GoogleTest
# or Google Benchmark beside the amd64 ones.
file(GLOB VELOK3_THINK_TIMER_SOURCES CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/bench/timer/*.cpp
  ${CMAKE_SOURCE_DIR}/tests/support/*.cpp ${CMAKE_SOURCE_DIR}/tests/double/*.cpp)
add_executable(velok3_think_timer ${VELOK3_THINK_TIMER_SOURCES})
target_link_libraries(velok3_think_timer PRIVATE velok3_portable)
target_include_directories(velok3_think_timer PRIVATE ${CMAKE_SOURCE_DIR}/tests)
target_compile_definitions(velok3_think_timer PRIVATE VELOK3_SOURCE_DIR="${CMAKE_SOURCE_DIR}")
option(VELOK3_THINK_TIMER_ONLY "Build only the library and the think timer" OFF)
if(VELOK3_THINK_TIMER_ONLY)
  return()
endif()

add_library(velok3_console_host STATIC ${VELOK3_CONSOLE_HOST_SOURCES})
target_link_libraries(velok3_console_host PUBLIC velok3_portable)

add_executable(velok3-demo ${CMAKE_SOURCE_DIR}/console/demo_main.cpp)
target_link_libraries(velok3-demo PRIVATE velok3_console_host)

if(VELOK3_UCI_SOURCES)
  # The UCI session as a library, shared by the program and the UCI fuzz target.
  set(VELOK3_UCI_MAIN ${CMAKE_SOURCE_DIR}/console/uci/uci_main.cpp)
  list(REMOVE_ITEM VELOK3_UCI_SOURCES ${VELOK3_UCI_MAIN})
  add_library(velok3_uci STATIC ${VELOK3_UCI_SOURCES})
  target_link_libraries(velok3_uci PUBLIC velok3_console_host)
  add_executable(velok3-uci ${VELOK3_UCI_MAIN})
  target_link_libraries(velok3-uci PRIVATE velok3_uci)
  # g++ 12 at -O3 reports overlapping copies inside std::string's own appends (a known false
  # positive of -Wrestrict); the UCI code builds its lines from strings throughout.
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    target_compile_options(velok3_uci PRIVATE -Wno-restrict)
  endif()
endif()

enable_testing()
find_package(GTest REQUIRED)
add_executable(velok3_tests ${VELOK3_UNIT_TEST_SOURCES})
target_link_libraries(velok3_tests PRIVATE velok3_portable GTest::gtest GTest::gtest_main)
target_include_directories(velok3_tests PRIVATE ${CMAKE_SOURCE_DIR}/tests)
target_compile_definitions(velok3_tests PRIVATE VELOK3_SOURCE_DIR="${CMAKE_SOURCE_DIR}"
  VELOK3_BINARY_DIR="${CMAKE_BINARY_DIR}")
include(GoogleTest)
gtest_discover_tests(velok3_tests DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 600)

# The UCI engine as a GUI sees it: a child process spoken to on its pipes, and a few short games
# against itself through the match tool.
find_package(Python3 COMPONENTS Interpreter)
if(TARGET velok3-uci AND Python3_FOUND)
  add_test(NAME uci_protocol
    COMMAND Python3::Interpreter ${CMAKE_SOURCE_DIR}/tests/uci/test_uci.py $<TARGET_FILE:velok3-uci>)
  add_test(NAME uci_self_match
    COMMAND Python3::Interpreter ${CMAKE_SOURCE_DIR}/tools/uci_match.py --games 4 --max-plies 60
      --option Level=1 $<TARGET_FILE:velok3-uci> $<TARGET_FILE:velok3-uci>)
  set_tests_properties(uci_protocol uci_self_match PROPERTIES TIMEOUT 1200)
endif()

find_package(benchmark QUIET)
if(benchmark_FOUND AND VELOK3_BENCH_SOURCES)
  file(GLOB VELOK3_BENCH_DOUBLE_SOURCES ${CMAKE_SOURCE_DIR}/tests/double/*.cpp)
  add_executable(velok3_bench ${VELOK3_BENCH_SOURCES} ${VELOK3_BENCH_DOUBLE_SOURCES})
  target_link_libraries(velok3_bench PRIVATE velok3_portable benchmark::benchmark benchmark::benchmark_main)
  target_include_directories(velok3_bench PRIVATE ${CMAKE_SOURCE_DIR}/tests)
  target_compile_definitions(velok3_bench PRIVATE VELOK3_SOURCE_DIR="${CMAKE_SOURCE_DIR}")
endif()

if(VELOK3_FUZZ)
  # Coverage counters in the library too, so that the fuzzer is guided by the code under test and
  # not by the small target alone.
  target_compile_options(velok3_portable PRIVATE -fsanitize=fuzzer-no-link)
  target_compile_options(velok3_uci PRIVATE -fsanitize=fuzzer-no-link)
  # The file readers run against the recording double of the host; the UCI commands against
  # the console host, as velok3-uci does.
  foreach(source ${VELOK3_FUZZ_SOURCES})
    get_filename_component(name ${source} NAME_WE)
    add_executable(${name} ${source})
    target_compile_options(${name} PRIVATE -fsanitize=fuzzer)
    target_link_options(${name} PRIVATE -fsanitize=fuzzer)
    if(name STREQUAL "fuzz_uci_commands")
      target_link_libraries(${name} PRIVATE velok3_uci)
    else()
      target_sources(${name} PRIVATE ${CMAKE_SOURCE_DIR}/tests/double/host_double.cpp)
      target_link_libraries(${name} PRIVATE velok3_portable)
    endif()
    target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR}/tests)
  endforeach()
endif()
