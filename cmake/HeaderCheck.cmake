# Every header compiles alone: each becomes the only line of a source file of its own. The host build
# has those that need no system header, the others are left to the builds that have it.

set(portable engine/*.h settings/*.h platform/*.h app/model/*.h app/preview/model/*.h saver/animation/*.h saver/model/*.h
             config/model/*.h tests/support/*.h tests/conformance/*.h tests/model/*.h tests/faults/*.h tests/fuzz/*.h)
file(GLOB_RECURSE headers RELATIVE ${CMAKE_SOURCE_DIR} CONFIGURE_DEPENDS ${portable})
list(FILTER headers EXCLUDE REGEX "/win32/")
if(WIN32)
  set(portable_headers ${headers})
  file(GLOB_RECURSE headers RELATIVE ${CMAKE_SOURCE_DIR} CONFIGURE_DEPENDS
       app/*.h config/*.h platform/*.h saver/*.h tests/*.h)
  list(REMOVE_ITEM headers ${portable_headers})
endif()
set(header_sources)
foreach(header IN LISTS headers)
  string(MAKE_C_IDENTIFIER ${header} identifier)
  set(source ${CMAKE_BINARY_DIR}/generated/header_check/${identifier}.cpp)
  file(CONFIGURE OUTPUT ${source} CONTENT "#include \"${header}\"\n")
  list(APPEND header_sources ${source})
endforeach()
add_library(ambrio_header_check OBJECT ${header_sources})
target_link_libraries(ambrio_header_check PRIVATE ambrio_compiler_settings gtest)
target_compile_options(ambrio_header_check PRIVATE -O0)
