# Language, warnings, sanitizers, compiler cache and Qt: what every target of the tree shares.

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
# executables take the flag of the libraries, so that one precompiled header serves both
set(CMAKE_CXX_COMPILE_OPTIONS_PIE "-fPIC")
set(CMAKE_AUTOMOC ON)
set(CMAKE_AUTORCC ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/lib")
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/lib")

if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
  set(CMAKE_BUILD_TYPE RelWithDebInfo CACHE STRING "Build type" FORCE)
endif()

find_program(ORIM_CCACHE ccache)
if(ORIM_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER
      "${CMAKE_COMMAND};-E;env;CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime;CCACHE_BASEDIR=${CMAKE_SOURCE_DIR};CCACHE_NOHASHDIR=1;${ORIM_CCACHE}")
endif()

add_compile_options(-Wall -Wextra -Wpedantic -Wconversion)
if(ORIM_WERROR)
  add_compile_options(-Werror)
endif()
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # calls inside a library go straight to the function, as clang has it anyway: nobody may replace one from outside
  add_compile_options($<$<CONFIG:Release,RelWithDebInfo>:-fno-semantic-interposition>)
endif()
if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
  # a precompiled header hides its own use from clang's search for unused arguments
  add_compile_options(-Wno-unused-command-line-argument)
endif()

# many test programs are linked: by the fastest linker there is
find_program(ORIM_LLD ld.lld)
if(ORIM_LLD AND ORIM_BUILD_TESTS)
  add_link_options(-fuse-ld=lld)
endif()

if(ORIM_SANITIZE)
  add_compile_options(-fsanitize=address,undefined,float-cast-overflow -fno-sanitize=vptr
                      -fno-sanitize-recover=all -fno-omit-frame-pointer -O1)
  add_link_options(-fsanitize=address,undefined)
  add_compile_definitions(_GLIBCXX_ASSERTIONS)
endif()
if(ORIM_COVERAGE)
  add_compile_options(-fprofile-instr-generate -fcoverage-mapping)
  add_link_options(-fprofile-instr-generate)
endif()

find_package(Threads REQUIRED)
find_package(Qt${ORIM_QT_MAJOR} REQUIRED COMPONENTS Core Gui Widgets LinguistTools)
if(ORIM_BUILD_TESTS)
  find_package(Qt${ORIM_QT_MAJOR} REQUIRED COMPONENTS Test)
endif()
set(ORIM_QT Qt${ORIM_QT_MAJOR})
set(ORIM_SUFFIX "-qt${ORIM_QT_MAJOR}")
# QT_NO_KEYWORDS: an application that builds so must be able to read every header
add_compile_definitions(QT_NO_KEYWORDS QT_DEPRECATED_WARNINGS)
