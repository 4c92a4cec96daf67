# The user manual: `cmake --build --preset <any> --target manual` compiles docs/manual into
# <build>/manual/velok-3.chm with tools/build_manual.sh, which fails on any warning of chmcmd.
# Left out where chmcmd or bash is missing (a Windows build with MSVC, say).
find_program(VELOK3_CHMCMD chmcmd)
find_program(VELOK3_BASH bash)
if(VELOK3_CHMCMD AND VELOK3_BASH)
  file(GLOB VELOK3_MANUAL_SOURCES LIST_DIRECTORIES false CONFIGURE_DEPENDS
    ${CMAKE_SOURCE_DIR}/docs/manual/* ${CMAKE_SOURCE_DIR}/docs/manual/images/*)
  set(VELOK3_MANUAL ${CMAKE_BINARY_DIR}/manual/velok-3.chm)
  add_custom_command(OUTPUT ${VELOK3_MANUAL}
    COMMAND ${VELOK3_BASH} tools/build_manual.sh ${CMAKE_BINARY_DIR}/manual
    WORKING_DIRECTORY ${CMAKE_SOURCE_DIR}
    DEPENDS ${VELOK3_MANUAL_SOURCES} ${CMAKE_SOURCE_DIR}/tools/build_manual.sh
    COMMENT "Compiling the user manual")
  add_custom_target(manual DEPENDS ${VELOK3_MANUAL})
endif()
