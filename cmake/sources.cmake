# Source lists, gathered by folder so that adding a file needs no edit here.
file(GLOB VELOK3_PORTABLE_SOURCES CONFIGURE_DEPENDS
  ${CMAKE_SOURCE_DIR}/core/*.cpp ${CMAKE_SOURCE_DIR}/core/squares/*.cpp
  ${CMAKE_SOURCE_DIR}/engine/*.cpp ${CMAKE_SOURCE_DIR}/records/*.cpp)
file(GLOB VELOK3_CONSOLE_HOST_SOURCES CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/console/host/*.cpp)
file(GLOB VELOK3_UCI_SOURCES CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/console/uci/*.cpp)
file(GLOB VELOK3_SHELL_SOURCES CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/shell/*.cpp)
file(GLOB VELOK3_UNIT_TEST_SOURCES CONFIGURE_DEPENDS
  ${CMAKE_SOURCE_DIR}/tests/unit/*.cpp ${CMAKE_SOURCE_DIR}/tests/double/*.cpp
  ${CMAKE_SOURCE_DIR}/tests/support/*.cpp)
file(GLOB VELOK3_BENCH_SOURCES CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/bench/*.cpp
  ${CMAKE_SOURCE_DIR}/tests/support/*.cpp)
file(GLOB VELOK3_FUZZ_SOURCES CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/tests/fuzz/*.cpp)
file(GLOB VELOK3_E2E_DRIVER_SOURCES CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/tests/e2e/driver/*.cpp)

# The per-square routines index the board with constants only, so UBSan has nothing to check
# there and would triple their build time; AddressSanitizer still covers them.
if(VELOK3_SANITIZE)
  file(GLOB VELOK3_SQUARE_SOURCES ${CMAKE_SOURCE_DIR}/core/squares/*.cpp)
  set_source_files_properties(${VELOK3_SQUARE_SOURCES} PROPERTIES COMPILE_OPTIONS "-fno-sanitize=undefined")
endif()
