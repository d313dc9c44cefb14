# Tries every rule of cmake/CheckLayers.cmake on a text that breaks it and on one that nearly does.

include("${CMAKE_CURRENT_LIST_DIR}/../../cmake/CheckLayers.cmake")

orim_know_headers(contracts/krbase/observable.h contracts/krbase/qtcompat.h contracts/glbase/axisdefinition.h
                  contracts/valueframework/tree.h contracts/optiondialog/options.h controls/orimwidgets/marker.h
                  apps/console/panes.h)
set(licence "// SPDX-License-Identifier: MIT\n")
set(failures 0)
set(rows 0)

# expect(name path content complaint): one complaint that matches, or none for "".
function(expect name path content complaint)
  orim_check_text("${path}" "${content}" complaints)
  list(LENGTH complaints count)
  math(EXPR rows "${rows} + 1")
  set(rows ${rows} PARENT_SCOPE)
  if(complaint STREQUAL "" AND count EQUAL 0)
    return()
  endif()
  if(NOT complaint STREQUAL "" AND count EQUAL 1 AND complaints MATCHES "${complaint}")
    return()
  endif()
  message("FAIL ${name}: got '${complaints}', wanted '${complaint}'")
  math(EXPR failures "${failures} + 1")
  set(failures ${failures} PARENT_SCOPE)
endfunction()

set(tree contracts/valueframework/tree.cpp)

expect("a clean file" ${tree} "${licence}#include \"tree.h\"\n\n#include \"observable.h\"\n\n#include <QString>\n" "")
expect("up inside contracts" contracts/krbase/observable.cpp "${licence}#include \"tree.h\"\n" "includes tree.h from contracts/valueframework")
expect("up by one floor" contracts/glbase/axisdefinition.cpp "${licence}#include \"tree.h\"\n" "includes tree.h")
expect("from contracts to controls" contracts/optiondialog/options.cpp "${licence}#include \"marker.h\"\n" "includes marker.h from controls")
expect("from controls to apps" controls/orimwidgets/marker.cpp "${licence}#include \"panes.h\"\n" "includes panes.h from apps")
expect("from contracts to apps" contracts/krbase/observable.cpp "${licence}#include \"panes.h\"\n" "includes panes.h from apps")
expect("with a folder in front" ${tree} "${licence}#include \"../optiondialog/options.h\"\n" "includes options.h")
expect("in angle brackets" ${tree} "${licence}#include <options.h>\n" "includes options.h")
expect("with spaces" ${tree} "${licence}#  include   \"options.h\"\n" "includes options.h")
expect("the second include" ${tree} "${licence}#include \"tree.h\"\n#include \"options.h\"\n" "includes options.h")
expect("down is allowed" apps/console/panes.cpp "${licence}#include \"panes.h\"\n#include \"marker.h\"\n#include \"tree.h\"\n" "")
expect("the own floor is allowed" ${tree} "${licence}#include \"tree.h\"\n" "")
expect("a header that is not ours" ${tree} "${licence}#include \"elsewhere.h\"\n" "")
expect("a name that ends alike" ${tree} "${licence}#include \"myoptions.h\"\n" "")

expect("no licence line" ${tree} "#include \"tree.h\"\n" "licence")
expect("a licence line further down" ${tree} "\n${licence}" "licence")
expect("another licence" ${tree} "// SPDX-License-Identifier: GPL-2.0\n" "licence")
expect("an empty file" ${tree} "" "licence")

expect("the Qt version" ${tree} "${licence}#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)\n#endif\n" "Qt version")
expect("the Qt version after another question" ${tree} "${licence}#if defined(X) && QT_VERSION < 1\n#endif\n" "Qt version")
expect("the Qt version otherwise" ${tree} "${licence}#if X\n#elif QT_VERSION < 1\n#endif\n" "Qt version")
expect("the Qt version in its header" contracts/krbase/qtcompat.h "${licence}#if QT_VERSION >= 1\n#endif\n" "")
expect("another question" ${tree} "${licence}#if defined(NDEBUG)\nint QT_VERSIONS;\n#endif\n" "")

expect("a timer without a context" ${tree} "${licence}QTimer::singleShot(0, [this] { Go(); });\n" "context")
expect("a timer without a context, all captured" ${tree} "${licence}QTimer::singleShot(Delay(), [=] { Go(); });\n" "context")
expect("a timer without a context, two lines" ${tree} "${licence}QTimer::singleShot(0,\n    [this] { Go(); });\n" "context")
expect("a timer with a context" ${tree} "${licence}QTimer::singleShot(0, this, [this] { Go(); });\n" "")
expect("a timer with a member" ${tree} "${licence}QTimer::singleShot(0, this, &Tree::Go);\n" "")

expect("a nested event loop" ${tree} "${licence}QCoreApplication::processEvents();\n" "event loop")
expect("a nested event loop with flags" ${tree} "${licence}loop.processEvents (QEventLoop::AllEvents);\n" "event loop")
expect("a word like it" ${tree} "${licence}// counts what processEvents would do\n" "")

foreach(word TODO FIXME XXX HACK)
  expect("the word ${word}" ${tree} "${licence}// ${word}: later\n" "unfinished work: ${word}")
endforeach()
expect("the word at the end" ${tree} "${licence}// TODO" "unfinished")
expect("a word that holds it" ${tree} "${licence}int const TODOS = 1; int METODO; int TODO_LIST;\n" "")

string(REPEAT "int x;\n" 899 lines)
expect("900 lines" ${tree} "${licence}${lines}" "")
expect("901 lines" ${tree} "${licence}${lines}\n" "has 901 lines")
string(REPEAT "int a[2] = { 0, 1 }; // ] [ ;\n" 950 brackets)
expect("brackets and semicolons do not hide lines" ${tree} "${licence}${brackets}" "has 951 lines")

# a whole tree on disk, as the check reads it
file(REMOVE_RECURSE "${WORK}")
file(WRITE "${WORK}/contracts/krbase/low.h" "${licence}")
file(WRITE "${WORK}/contracts/guibase/high.h" "${licence}#include \"low.h\"\n")
file(WRITE "${WORK}/controls/orimwidgets/w.cpp" "${licence}#include \"high.h\"\n")
file(WRITE "${WORK}/apps/console/main.cpp" "${licence}#include \"high.h\"\n")
foreach(turn "clean" "broken")
  execute_process(COMMAND "${CMAKE_COMMAND}" "-DROOT=${WORK}" -P
                          "${CMAKE_CURRENT_LIST_DIR}/../../cmake/CheckLayers.cmake"
                  RESULT_VARIABLE code ERROR_VARIABLE text)
  math(EXPR rows "${rows} + 1")
  if((turn STREQUAL "clean" AND NOT code EQUAL 0) OR
     (turn STREQUAL "broken" AND (code EQUAL 0 OR NOT text MATCHES "low.h: includes high.h from contracts/guibase")))
    message("FAIL ${turn} tree: code ${code}, '${text}'")
    math(EXPR failures "${failures} + 1")
  endif()
  file(WRITE "${WORK}/contracts/krbase/low.h" "${licence}#include \"high.h\"\n")
endforeach()

if(failures GREATER 0)
  message(FATAL_ERROR "${failures} of ${rows} rows failed")
endif()
message("${rows} rows passed")
