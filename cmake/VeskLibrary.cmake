# The warning set of the whole tree, whose warnings the presets make errors, and the helpers every folder's CMakeLists.txt uses.

add_library(vesk_warnings INTERFACE)
target_compile_options(vesk_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual
  -Wold-style-cast -Wcast-align -Wconversion -Wsign-conversion -Wformat=2
  # A designated initialiser leaves the members it does not name at their defaults.
  -Wno-missing-field-initializers)
target_compile_definitions(vesk_warnings INTERFACE
  QT_NO_KEYWORDS QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_FOREACH QT_DISABLE_DEPRECATED_BEFORE=0x060400)

# vesk_library(NAME SOURCES...): a static library with the tree's warnings. Includes name their folder from the root. Where a class
# says Q_OBJECT, the target asks for AUTOMOC: looking for that where there is none takes as long as a small source.
function(vesk_library name)
  add_library(${name} STATIC ${ARGN})
  target_link_libraries(${name} PRIVATE vesk_warnings)
  target_include_directories(${name} PUBLIC "${CMAKE_SOURCE_DIR}")
endfunction()

# vesk_repeatable_qml(NAME): has the QML of a library compile to the same bits every time. To be called before qt_add_qml_module.
function(vesk_repeatable_qml name)
  get_target_property(VESK_QMLCACHEGEN Qt6::qmlcachegen LOCATION)
  set(program "${CMAKE_CURRENT_BINARY_DIR}/qmlcachegen")
  configure_file("${CMAKE_SOURCE_DIR}/cmake/qmlcachegen.in" "${program}" @ONLY USE_SOURCE_PERMISSIONS)
  set_target_properties(${name} PROPERTIES QT_QMLCACHEGEN_EXECUTABLE "${program}")
endfunction()

# What most sources include, precompiled once for a library and for whoever names that library after REUSE_FROM and is compiled
# with the same options. Only what lies outside this tree stands here, so that no change of the tree compiles it anew; and a source
# still includes all that it uses, since clang-tidy and the sanitizers read it without.
set(vesk_precompiled_core <algorithm> <functional> <memory> <string> <vector> <QFile> <QObject> <QString> <QStringList>)
set(vesk_precompiled_quick
  <QGuiApplication> <QPainter> <QQmlEngine> <QQuickItem> <QQuickWindow> <QtQml/qqmlprivate.h> <QtQml/qqmlregistration.h>)
set(vesk_precompiled_tests
  <array> <atomic> <chrono> <future> <map> <mutex> <optional> <random> <stop_token> <thread> <QCoreApplication> <QDir>
  <QProcess> <QSignalSpy> <QTcpServer> <QTcpSocket> <QTemporaryDir> <QTest> <gtest/gtest.h>)
