# One precompiled header of the Qt Core and standard headers that nearly every file includes,
# compiled once and reused by every C++ target (tk_pch_tests adds GoogleTest for the tests).
# ccache caches the files that use it only with -fpch-preprocess (GCC) and the sloppiness the
# presets' launcher sets (pch_defines, time_macros, include_file_mtime, include_file_ctime).

set(TK_PCH_HEADERS
  <QString> <QStringList> <QList> <QHash> <QByteArray> <QObject> <QFile> <QDir> <QFileInfo>
  <QDateTime> <QTimer> <QCoreApplication> <QElapsedTimer> <QRegularExpression>
  <functional> <memory> <optional> <vector> <algorithm> <utility>)

file(WRITE ${CMAKE_BINARY_DIR}/tk_pch.cpp "// The translation unit that compiles the shared precompiled header.\n")
add_library(tk_pch STATIC ${CMAKE_BINARY_DIR}/tk_pch.cpp)
target_link_libraries(tk_pch PRIVATE Qt6::Core)
target_precompile_headers(tk_pch PRIVATE ${TK_PCH_HEADERS})

if(TK_BUILD_TESTS)
  add_library(tk_pch_tests STATIC ${CMAKE_BINARY_DIR}/tk_pch.cpp)
  target_link_libraries(tk_pch_tests PRIVATE Qt6::Core GTest::gtest GTest::gmock)
  target_precompile_headers(tk_pch_tests PRIVATE ${TK_PCH_HEADERS} <gtest/gtest.h>
                                                 <gmock/gmock.h>)
endif()

# Every target below the source folder that compiles C++ of its own.
function(tk_targets_below dir out)
  get_property(targets DIRECTORY ${dir} PROPERTY BUILDSYSTEM_TARGETS)
  get_property(subdirs DIRECTORY ${dir} PROPERTY SUBDIRECTORIES)
  foreach(sub ${subdirs})
    tk_targets_below(${sub} more)
    list(APPEND targets ${more})
  endforeach()
  set(${out} ${targets} PARENT_SCOPE)
endfunction()

tk_targets_below(${CMAKE_SOURCE_DIR} tk_all_targets)
foreach(t ${tk_all_targets})
  get_target_property(type ${t} TYPE)
  if(NOT type MATCHES "^(STATIC_LIBRARY|EXECUTABLE|OBJECT_LIBRARY)$")
    continue()
  endif()
  # A target that undefines one of the project's macros (the drawing tools) cannot use it.
  get_target_property(options ${t} COMPILE_OPTIONS)
  if("${options}" MATCHES "-U")
    continue()
  endif()
  target_compile_options(${t} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>)
  if(t MATCHES "^tk_pch")
    continue()
  endif()
  get_target_property(dir ${t} SOURCE_DIR)
  string(FIND "${dir}" "${CMAKE_SOURCE_DIR}/tests" in_tests)
  if(in_tests EQUAL 0 AND TARGET tk_pch_tests)
    target_precompile_headers(${t} REUSE_FROM tk_pch_tests)
  else()
    target_precompile_headers(${t} REUSE_FROM tk_pch)
  endif()
endforeach()
