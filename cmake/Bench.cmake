# One benchmark program, run by hand (never by CI):
#   tk_add_bench(NAME SOURCES files... [LIBS targets...] [OWN_MAIN] [USES_SERVER] [USES_THEME]
#                [LOOSE_CASTS] [DEFINES definitions...] [DEPENDS targets...])
# OWN_MAIN: a program with its own main() (a load script), without Google Benchmark.
# USES_SERVER: TK_SERVER_EXE names tafelkrater-server, which is built first.
# USES_THEME: the default theme and the standard icons the screen tests use (TK_DEFAULT_THEME,
#   TK_STANDARD_ICL), built first.
# LOOSE_CASTS: the code makes text from plain C strings (-UQT_NO_CAST_FROM_ASCII).
function(tk_add_bench name)
  cmake_parse_arguments(B "OWN_MAIN;USES_SERVER;USES_THEME;LOOSE_CASTS" ""
                        "SOURCES;LIBS;DEFINES;DEPENDS" ${ARGN})
  add_executable(${name} ${B_SOURCES})
  target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR})
  target_link_libraries(${name} PRIVATE ${B_LIBS})
  if(NOT B_OWN_MAIN)
    target_link_libraries(${name} PRIVATE benchmark::benchmark)
  endif()
  if(B_LOOSE_CASTS)
    target_compile_options(${name} PRIVATE -UQT_NO_CAST_FROM_ASCII)
  endif()
  if(B_USES_SERVER)
    target_compile_definitions(${name} PRIVATE TK_SERVER_EXE="$<TARGET_FILE:tafelkrater-server>")
    add_dependencies(${name} tafelkrater-server)
  endif()
  if(B_USES_THEME)
    target_compile_definitions(${name} PRIVATE
      TK_DEFAULT_THEME="${CMAKE_BINARY_DIR}/tools/themamaker/Standaard"
      TK_STANDARD_ICL="${CMAKE_BINARY_DIR}/tools/pictogrammaker/standaard.icl")
    add_dependencies(${name} tk_default_theme tk_standard_icons)
  endif()
  if(B_DEFINES)
    target_compile_definitions(${name} PRIVATE ${B_DEFINES})
  endif()
  if(B_DEPENDS)
    add_dependencies(${name} ${B_DEPENDS})
  endif()
endfunction()
