# Rules of the tree that no compiler enforces, read from the sources as text.
#
#   cmake -DROOT=<top of the tree> -P cmake/CheckLayers.cmake
#
# Fails with one line for each breach: an include that points up, a missing licence line, a question for the Qt version
# outside qtcompat.h, a timer shot without a context object, a nested run of the event loop, a note of unfinished work,
# a file that is too long. tests/layers proves that each rule can fail.

# lower floors first; a source may include headers of its own floor and of those before it
set(ORIM_FLOORS contracts/krbase contracts/orimappstartup contracts/glbase contracts/valueframework contracts/guibase
    contracts/basicvaluewidgets contracts/basedialogs contracts/optiondialog controls/orimwidgets apps)
set(ORIM_LONGEST_FILE 900)

# orim_floor_of(path out): the index of a file's floor; -1 for none. A path is relative to the top of the tree.
function(orim_floor_of path out)
  set(index 0)
  foreach(floor IN LISTS ORIM_FLOORS)
    string(FIND "${path}" "${floor}/" at)
    if(at EQUAL 0)
      set(${out} ${index} PARENT_SCOPE)
      return()
    endif()
    math(EXPR index "${index} + 1")
  endforeach()
  set(${out} -1 PARENT_SCOPE)
endfunction()

# orim_know_headers(path...): remembers on which floor the header of a name lies.
function(orim_know_headers)
  foreach(path IN LISTS ARGN)
    get_filename_component(name "${path}" NAME)
    orim_floor_of("${path}" floor)
    set_property(GLOBAL APPEND PROPERTY "ORIM_FLOORS_OF_${name}" ${floor})
  endforeach()
endfunction()

# orim_check_includes(path content out): includes that point up, as a list of complaints.
function(orim_check_includes path content out)
  set(complaints)
  orim_floor_of("${path}" own)
  string(REGEX MATCHALL "#[ \t]*include[ \t]*[\"<][^\">\n]+[\">]" includes "${content}")
  foreach(include IN LISTS includes)
    string(REGEX REPLACE ".*[\"<]([^\">]+)[\">]" "\\1" header "${include}")
    get_filename_component(name "${header}" NAME)
    get_property(floors GLOBAL PROPERTY "ORIM_FLOORS_OF_${name}")
    foreach(floor IN LISTS floors)
      if(floor GREATER own)
        list(GET ORIM_FLOORS ${floor} upper)
        list(APPEND complaints "${path}: includes ${name} from ${upper} above it")
      endif()
    endforeach()
  endforeach()
  set(${out} "${complaints}" PARENT_SCOPE)
endfunction()

# orim_check_text(path content out): every complaint about one file.
function(orim_check_text path content out)
  orim_check_includes("${path}" "${content}" complaints)
  string(FIND "${content}" "// SPDX-License-Identifier: MIT\n" at)
  if(NOT at EQUAL 0)
    list(APPEND complaints "${path}: does not begin with its licence line")
  endif()
  if(NOT path STREQUAL "contracts/krbase/qtcompat.h" AND content MATCHES "#[ \t]*(el)?if[^\n]*QT_VERSION")
    list(APPEND complaints "${path}: asks for the Qt version")
  endif()
  if(content MATCHES "singleShot[ \t]*\\([^,]*,[ \t\n]*\\[")
    list(APPEND complaints "${path}: shoots a timer without a context object")
  endif()
  if(content MATCHES "processEvents[ \t]*\\(")
    list(APPEND complaints "${path}: runs a nested event loop")
  endif()
  if(content MATCHES "(^|[^A-Za-z_])(TODO|FIXME|XXX|HACK)([^A-Za-z_]|$)")
    list(APPEND complaints "${path}: notes unfinished work: ${CMAKE_MATCH_2}")
  endif()
  string(REGEX REPLACE "[^\n]+" "" ends "${content}")
  string(LENGTH "${ends}" lines)
  if(lines GREATER ORIM_LONGEST_FILE)
    list(APPEND complaints "${path}: has ${lines} lines, more than ${ORIM_LONGEST_FILE}")
  endif()
  set(${out} "${complaints}" PARENT_SCOPE)
endfunction()

# orim_check_tree(root out): every complaint about the tree, and the number of files read in ORIM_FILES_READ.
function(orim_check_tree root out)
  file(GLOB_RECURSE sources RELATIVE "${root}" "${root}/contracts/*.h" "${root}/contracts/*.cpp"
       "${root}/controls/*.h" "${root}/controls/*.cpp" "${root}/apps/*.h" "${root}/apps/*.cpp")
  set(headers ${sources})
  list(FILTER headers INCLUDE REGEX "\\.h$")
  orim_know_headers(${headers})
  set(all)
  foreach(path IN LISTS sources)
    file(READ "${root}/${path}" content)
    orim_check_text("${path}" "${content}" complaints)
    list(APPEND all ${complaints})
  endforeach()
  list(LENGTH sources count)
  set(ORIM_FILES_READ ${count} PARENT_SCOPE)
  set(${out} "${all}" PARENT_SCOPE)
endfunction()

if(DEFINED ROOT)
  orim_check_tree("${ROOT}" breaches)
  if(NOT ORIM_FILES_READ GREATER 0)
    message(FATAL_ERROR "no sources below ${ROOT}")
  endif()
  foreach(breach IN LISTS breaches)
    message("${breach}")
  endforeach()
  if(breaches)
    message(FATAL_ERROR "the tree breaks its rules")
  endif()
  message("${ORIM_FILES_READ} files keep the rules of the tree")
endif()
