# Headers that hardly ever change and that most sources include are read once for all of them. They
# are still included where they are used: in their check the headers find nothing precompiled but
# what they include anyway, and clang-tidy goes without.
set(STANDARD_HEADERS
    <algorithm>
    <array>
    <cmath>
    <cstdint>
    <functional>
    <map>
    <memory>
    <optional>
    <span>
    <string>
    <string_view>
    <utility>
    <vector>
)
set(WINDOWS_HEADERS platform/win32/WindowsHeaders.h)

# ambrio_reached(RESULT FILE): the headers that a file of the project includes, itself or by headers of
# the project, as they are written: <string>, platform/win32/WindowsHeaders.h.
function(ambrio_reached result file)
  get_property(known GLOBAL PROPERTY AMBRIO_REACHED_${file} SET)
  if(NOT known)
    set_property(GLOBAL PROPERTY AMBRIO_REACHED_${file} "")
    set(reached)
    file(STRINGS ${CMAKE_SOURCE_DIR}/${file} lines REGEX "^#include [<\"]")
    foreach(line IN LISTS lines)
      string(REGEX REPLACE "^#include \"?([^\" ]+).*" "\\1" header "${line}")
      list(APPEND reached ${header})
      if(EXISTS ${CMAKE_SOURCE_DIR}/${header})
        ambrio_reached(further ${header})
        list(APPEND reached ${further})
      endif()
    endforeach()
    list(REMOVE_DUPLICATES reached)
    set_property(GLOBAL PROPERTY AMBRIO_REACHED_${file} "${reached}")
  endif()
  get_property(reached GLOBAL PROPERTY AMBRIO_REACHED_${file})
  set(${result} ${reached} PARENT_SCOPE)
endfunction()

# ambrio_reaches(RESULT FILE HEADER...): whether a file reaches all of these headers.
function(ambrio_reaches result file)
  ambrio_reached(reached ${file})
  set(${result} TRUE PARENT_SCOPE)
  foreach(header IN LISTS ARGN)
    if(NOT header IN_LIST reached)
      set(${result} FALSE PARENT_SCOPE)
    endif()
  endforeach()
endfunction()

# ambrio_precompile(NAME LINKS TARGET... HEADERS HEADER...): what the targets that are compiled with
# these settings may use.
function(ambrio_precompile name)
  cmake_parse_arguments(PRECOMPILE "" "" "LINKS;HEADERS" ${ARGN})
  set(nothing ${CMAKE_BINARY_DIR}/generated/Nothing.cpp)
  file(CONFIGURE OUTPUT ${nothing} CONTENT "")
  add_library(ambrio_precompiled_${name} OBJECT EXCLUDE_FROM_ALL ${nothing})
  target_link_libraries(ambrio_precompiled_${name} PRIVATE ${PRECOMPILE_LINKS})
  list(TRANSFORM PRECOMPILE_HEADERS REPLACE "^([^<].*)" "${CMAKE_SOURCE_DIR}/\\1")
  target_precompile_headers(ambrio_precompiled_${name} PRIVATE ${PRECOMPILE_HEADERS})
endfunction()

# Rooms use the standard library's only in native builds. In optimised ones GCC 12 takes empty wide
# literals for too small when it has precompiled <string> with the system's wmemcpy.
function(ambrio_use_precompiled target name)
  if(TARGET ambrio_precompiled_${name})
    target_precompile_headers(${target} REUSE_FROM ambrio_precompiled_${name})
  endif()
endfunction()
