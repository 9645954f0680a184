# Headers that hardly ever change and that most sources include are read once for all of them. They
# are still included where they are used: the header check and clang-tidy go without this.
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
set(WINDOWS_HEADERS ${CMAKE_SOURCE_DIR}/platform/win32/WindowsHeaders.h)

# ambrio_precompile(NAME LINKS TARGET... HEADERS HEADER...): what the targets that are compiled with
# these settings may use.
function(ambrio_precompile name)
  cmake_parse_arguments(PRECOMPILE "" "" "LINKS;HEADERS" ${ARGN})
  set(nothing ${CMAKE_BINARY_DIR}/generated/Nothing.cpp)
  file(CONFIGURE OUTPUT ${nothing} CONTENT "")
  add_library(ambrio_precompiled_${name} OBJECT EXCLUDE_FROM_ALL ${nothing})
  target_link_libraries(ambrio_precompiled_${name} PRIVATE ${PRECOMPILE_LINKS})
  target_precompile_headers(ambrio_precompiled_${name} PRIVATE ${PRECOMPILE_HEADERS})
endfunction()

# Rooms use the standard library's only in native builds. In optimised ones GCC 12 takes empty wide
# literals for too small when it has precompiled the header of wmemcpy, as the system's headers
# bring it too; the win64 build goes without and is warned where there is reason.
function(ambrio_use_precompiled target name)
  if(AMBRIO_PRECOMPILE AND TARGET ambrio_precompiled_${name})
    target_precompile_headers(${target} REUSE_FROM ambrio_precompiled_${name})
    if(name STREQUAL "windows")
      target_compile_options(${target} PRIVATE -Wno-array-bounds -Wno-stringop-overread)
    endif()
  endif()
endfunction()
