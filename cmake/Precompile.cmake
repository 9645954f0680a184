# Headers that hardly ever change and that most files include. They are still included where they are
# used: the header check and clang-tidy read every file without this.
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

# ambrio_precompile(TARGET FIRST HEADER...): the target and the others of the same FIRST share what
# FIRST has precompiled; they must be compiled alike.
function(ambrio_precompile name first)
  if(NOT AMBRIO_PRECOMPILE)
    return()
  endif()
  if(name STREQUAL first)
    target_precompile_headers(${name} PRIVATE ${ARGN})
  else()
    target_precompile_headers(${name} REUSE_FROM ${first})
  endif()
endfunction()
