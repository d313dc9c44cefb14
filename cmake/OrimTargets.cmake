# Helpers that make a layer, a test or a bench of one line.

# orim_add_pch(name [compile option ...])
# A precompiled header for everything that includes Qt and is compiled with the same options.
function(orim_add_pch name)
  add_library(${name} OBJECT "${CMAKE_SOURCE_DIR}/cmake/pch.cpp")
  target_link_libraries(${name} PUBLIC ${ORIM_QT}::Widgets)
  target_compile_options(${name} PRIVATE ${ARGN})
  set_target_properties(${name} PROPERTIES AUTOMOC OFF AUTORCC OFF)
  if(ORIM_PCH)
    target_precompile_headers(${name} PRIVATE <QtWidgets> <algorithm> <array> <cmath> <functional> <limits> <map>
                              <memory> <string> <vector>)
  endif()
endfunction()

# orim_use_pch(target [pch])
function(orim_use_pch target)
  set(pch ${ARGN} OrimPch)
  list(GET pch 0 pch)
  if(ORIM_PCH)
    target_precompile_headers(${target} REUSE_FROM ${pch})
  endif()
endfunction()

orim_add_pch(OrimPch)
# The libraries are what is to be fast, and what is looked into: a test itself is compiled in half the time so.
if(ORIM_SANITIZE AND CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
  orim_add_pch(OrimTestPch -O0)
endif()

# orim_add_layer(name SOURCES ... BELOW layer ...)
# A folder of contracts. It sees its own headers and those of the layers below it, and no others, so that an include
# which points up does not compile.
function(orim_add_layer name)
  cmake_parse_arguments(ARG "" "" "SOURCES;BELOW" ${ARGN})
  add_library(OrimLayer_${name} OBJECT ${ARG_SOURCES})
  target_compile_definitions(OrimLayer_${name} PRIVATE OrimContracts_EXPORTS)
  target_include_directories(OrimLayer_${name} PRIVATE "${CMAKE_CURRENT_SOURCE_DIR}"
                             "${CMAKE_BINARY_DIR}/contracts")
  foreach(below IN LISTS ARG_BELOW)
    target_include_directories(OrimLayer_${name} PRIVATE "${CMAKE_SOURCE_DIR}/contracts/${below}")
  endforeach()
  target_link_libraries(OrimLayer_${name} PUBLIC ${ORIM_QT}::Widgets)
  orim_use_pch(OrimLayer_${name})
  target_sources(OrimContracts PRIVATE $<TARGET_OBJECTS:OrimLayer_${name}>)
  target_include_directories(OrimContracts PUBLIC $<BUILD_INTERFACE:${CMAKE_CURRENT_SOURCE_DIR}>)
endfunction()

# orim_own_moc(target)
# For a program whose only classes with Q_OBJECT stand in target.cpp, which includes target.moc: moc is run on that file
# alone, and the source that AUTOMOC would add to the target and that would be empty is never compiled. moc gets no folder
# of headers: it would read all of Qt to find nothing that such a class needs, in forty times the time.
function(orim_own_moc target)
  set_target_properties(${target} PROPERTIES AUTOMOC OFF AUTORCC OFF)
  file(STRINGS ${target}.cpp includes REGEX "^#include \"${target}\\.moc\"")
  if(includes)
    set(folder "${CMAKE_CURRENT_BINARY_DIR}/${target}.dir")
    file(MAKE_DIRECTORY "${folder}")
    add_custom_command(OUTPUT "${folder}/${target}.moc"
                       COMMAND ${ORIM_QT}::moc -o "${folder}/${target}.moc" "${CMAKE_CURRENT_SOURCE_DIR}/${target}.cpp"
                       DEPENDS ${target}.cpp VERBATIM)
    target_sources(${target} PRIVATE "${folder}/${target}.moc")
    target_include_directories(${target} PRIVATE "${folder}")
  endif()
endfunction()

# orim_add_test(tst_name [LIBS target ...] [SOURCES extra.cpp ...] [LABELS label ...] [TIMEOUT seconds] [PLAIN]
#               [SERIAL])
# A test program tst_name.cpp under CTest: offscreen, own home, C locale, UTC. PLAIN leaves out the Qt test rules on
# warnings, for programs that are no QtTest. SERIAL: it judges time that others would take from it, and runs alone.
function(orim_add_test name)
  cmake_parse_arguments(ARG "PLAIN;SERIAL" "TIMEOUT" "LIBS;SOURCES;LABELS" ${ARGN})
  add_executable(${name} ${name}.cpp ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE OrimTestSupport ${ARG_LIBS} ${ORIM_QT}::Test ${ORIM_QT}::Widgets)
  orim_own_moc(${name})
  if("soak" IN_LIST ARG_LABELS)
    orim_use_pch(${name})
  elseif(TARGET OrimTestPch)
    target_compile_options(${name} PRIVATE -O0)
    orim_use_pch(${name} OrimTestPch)
  else()
    target_compile_options(${name} PRIVATE $<$<AND:$<CONFIG:Release>,$<CXX_COMPILER_ID:GNU>>:-O1>)
    orim_use_pch(${name})
  endif()
  add_test(NAME ${name} COMMAND ${name})
  orim_stage_test(${name} TIMEOUT ${ARG_TIMEOUT} LABELS ${ARG_LABELS})
  if(ARG_SERIAL)
    set_tests_properties(${name} PROPERTIES RUN_SERIAL ON)
  endif()
  if(NOT ARG_PLAIN)
    set_tests_properties(${name} PROPERTIES FAIL_REGULAR_EXPRESSION "QWARN|QCRITICAL|QSYSTEM")
  endif()
endfunction()

# orim_stage_test(name [TIMEOUT seconds] [LABELS label ...])
# The environment of a test that exists: a home inside the build tree, never the user's. The time is that of the short
# forms; a build that is configured with ORIM_LONG in the environment gives ten hours.
function(orim_stage_test name)
  cmake_parse_arguments(ARG "" "TIMEOUT" "LABELS" ${ARGN})
  if(NOT ARG_TIMEOUT)
    set(ARG_TIMEOUT 120)
  endif()
  if(DEFINED ENV{ORIM_LONG})
    set(ARG_TIMEOUT 36000)
  endif()
  set(home "${CMAKE_BINARY_DIR}/homes/${name}")
  file(MAKE_DIRECTORY "${home}/config" "${home}/data" "${home}/cache" "${home}/run")
  file(CHMOD "${home}/run" PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE)
  set_tests_properties(${name} PROPERTIES
    TIMEOUT ${ARG_TIMEOUT}
    LABELS "${ARG_LABELS}"
    ENVIRONMENT
    "HOME=${home};XDG_CONFIG_HOME=${home}/config;XDG_DATA_HOME=${home}/data;XDG_CACHE_HOME=${home}/cache;XDG_RUNTIME_DIR=${home}/run;QT_QPA_PLATFORM=offscreen;QT_NO_GLIB=1;QT_LOGGING_RULES=qt.qpa.*=false;LC_ALL=C;TZ=UTC;ASAN_OPTIONS=detect_leaks=1:abort_on_error=0;LSAN_OPTIONS=suppressions=${CMAKE_SOURCE_DIR}/tests/support/lsan.supp:print_suppressions=0;UBSAN_OPTIONS=print_stacktrace=1")
endfunction()

# orim_add_bench(bench_name [LIBS target ...])
# A benchmark program. Its main function comes from bench/support and prints ratios to the limit.
function(orim_add_bench name)
  cmake_parse_arguments(ARG "" "" "LIBS" ${ARGN})
  if(NOT TARGET OrimBenchMain)
    add_library(OrimBenchMain STATIC "${CMAKE_SOURCE_DIR}/bench/support/benchmain.cpp")
    target_link_libraries(OrimBenchMain PUBLIC ${ORIM_QT}::Widgets benchmark::benchmark)
    orim_use_pch(OrimBenchMain)
  endif()
  add_executable(${name} ${name}.cpp)
  target_link_libraries(${name} PRIVATE OrimBenchMain ${ARG_LIBS} ${ORIM_QT}::Widgets benchmark::benchmark)
  orim_own_moc(${name})
  orim_use_pch(${name})
endfunction()

# orim_add_fuzzer(fuzz_name [SOURCES parser.cpp ...] [LIBS target ...])
# A fuzzed text parser: fuzz_name.cpp defines LLVMFuzzerTestOneInput, and aborts when what it must hold does not. SOURCES
# are the parser's own sources, built once more into the program so that the fuzzer sees their branches. In every build the
# seeds in corpus/fuzz_name, cut short and with flipped bits, are replayed as test fuzz_name_replay; with clang and the
# sanitizers the fuzzer itself runs as test fuzz_name (20 s; 600 s when ORIM_LONG is set) and keeps what it finds in
# corpus/fuzz_name of the build tree.
function(orim_add_fuzzer name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LIBS" ${ARGN})
  set(seeds "${CMAKE_CURRENT_SOURCE_DIR}/corpus/${name}")
  add_executable(${name}_replay "${CMAKE_SOURCE_DIR}/tests/fuzz/replay.cpp" ${name}.cpp ${ARG_SOURCES})
  target_link_libraries(${name}_replay PRIVATE OrimContracts ${ARG_LIBS})
  set_target_properties(${name}_replay PROPERTIES AUTOMOC OFF AUTORCC OFF)
  orim_use_pch(${name}_replay)
  add_test(NAME ${name}_replay COMMAND ${name}_replay "${seeds}")
  orim_stage_test(${name}_replay)
  if(NOT ORIM_SANITIZE OR NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    return()
  endif()
  add_executable(${name} ${name}.cpp ${ARG_SOURCES})
  target_compile_options(${name} PRIVATE -fsanitize=fuzzer)
  target_link_options(${name} PRIVATE -fsanitize=fuzzer)
  target_link_libraries(${name} PRIVATE OrimContracts ${ARG_LIBS})
  set_target_properties(${name} PROPERTIES AUTOMOC OFF AUTORCC OFF)
  set(found "${CMAKE_BINARY_DIR}/corpus/${name}")
  file(MAKE_DIRECTORY "${found}")
  add_test(NAME ${name} COMMAND sh "${CMAKE_SOURCE_DIR}/tests/fuzz/run.sh" $<TARGET_FILE:${name}> "${found}" "${seeds}")
  orim_stage_test(${name} LABELS soak TIMEOUT 900)
endfunction()
