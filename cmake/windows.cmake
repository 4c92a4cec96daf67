# Windows targets, cross-compiled with mingw-w64: the program, the UCI console engine and the
# end-to-end test driver. Everything links statically so the exes run on a bare Windows.
if(MSVC)
  set(CMAKE_MSVC_RUNTIME_LIBRARY "MultiThreaded$<$<CONFIG:Debug>:Debug>")
else()
  add_link_options(-static -static-libgcc -static-libstdc++)
endif()

if(VELOK3_SHELL_SOURCES AND EXISTS ${CMAKE_SOURCE_DIR}/resources/velok3.rc)
  enable_language(RC)
  # windres does not report the bitmaps and the icon it embeds, so name them as dependencies.
  file(GLOB VELOK3_ARTWORK CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/resources/*.bmp
    ${CMAKE_SOURCE_DIR}/resources/*.ico ${CMAKE_SOURCE_DIR}/resources/skins/*.bmp)
  set_source_files_properties(${CMAKE_SOURCE_DIR}/resources/velok3.rc PROPERTIES OBJECT_DEPENDS "${VELOK3_ARTWORK}")
  add_executable(velok3 WIN32 ${VELOK3_SHELL_SOURCES} ${CMAKE_SOURCE_DIR}/resources/velok3.rc)
  target_link_libraries(velok3 PRIVATE velok3_portable gdi32 comdlg32 shell32 user32 advapi32 msimg32)
  target_include_directories(velok3 PRIVATE ${CMAKE_SOURCE_DIR}/resources)
endif()

if(VELOK3_UCI_SOURCES)
  add_library(velok3_console_host STATIC ${VELOK3_CONSOLE_HOST_SOURCES})
  target_link_libraries(velok3_console_host PUBLIC velok3_portable)
  add_executable(velok3-uci ${VELOK3_UCI_SOURCES})
  target_link_libraries(velok3-uci PRIVATE velok3_console_host)
  # g++ 12 at -O3 reports overlapping copies inside std::string's own appends (a known false
  # positive of -Wrestrict); the UCI code builds its lines from strings throughout.
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    target_compile_options(velok3-uci PRIVATE -Wno-restrict)
  endif()
endif()

if(VELOK3_E2E_DRIVER_SOURCES)
  add_executable(velok3-e2e-driver ${VELOK3_E2E_DRIVER_SOURCES})
  target_link_libraries(velok3-e2e-driver PRIVATE user32 gdi32)
  # The driver takes the program's control ids and board geometry from the product's headers.
  target_include_directories(velok3-e2e-driver PRIVATE ${CMAKE_SOURCE_DIR})
  # GCC 12 at -O3 reports false overlaps inside std::string concatenation (its bug 105651); the
  # driver builds its messages that way.
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    target_compile_options(velok3-e2e-driver PRIVATE -Wno-restrict)
  endif()
endif()
