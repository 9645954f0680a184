# Every header compiles alone: each becomes the only line of a source file of its own. Headers that
# may include the system's are left to the builds that have it.

set(header_patterns engine/*.h settings/*.h platform/*.h app/model/*.h saver/animation/*.h
                    saver/model/*.h config/model/*.h tests/support/*.h tests/conformance/*.h)
if(WIN32)
  list(APPEND header_patterns app/*.h config/*.h saver/*.h tests/e2e/*.h tests/windowsfiles/*.h)
endif()
file(GLOB_RECURSE headers RELATIVE ${CMAKE_SOURCE_DIR} CONFIGURE_DEPENDS ${header_patterns})
if(NOT WIN32)
  list(FILTER headers EXCLUDE REGEX "/win32/")
endif()
list(REMOVE_DUPLICATES headers)
set(header_sources)
foreach(header IN LISTS headers)
  string(MAKE_C_IDENTIFIER ${header} identifier)
  set(source ${CMAKE_BINARY_DIR}/generated/header_check/${identifier}.cpp)
  file(CONFIGURE OUTPUT ${source} CONTENT "#include \"${header}\"\n")
  list(APPEND header_sources ${source})
endforeach()
add_library(ambrio_header_check OBJECT ${header_sources})
target_link_libraries(ambrio_header_check PRIVATE ambrio_compiler_settings gtest)
