# Every header compiles alone: each becomes the only line of a source file of its own, in the target
# check_headers. The dev build has those that need no system header, the others are left to the
# builds that have it.

set(portable engine/*.h settings/*.h platform/*.h app/model/*.h app/preview/model/*.h
             saver/animation/*.h saver/model/*.h config/model/*.h tests/support/*.h
             tests/conformance/*.h tests/model/*.h tests/faults/*.h tests/fuzz/*.h)
file(GLOB_RECURSE headers RELATIVE ${CMAKE_SOURCE_DIR} CONFIGURE_DEPENDS ${portable})
list(FILTER headers EXCLUDE REGEX "/win32/")
if(WIN32)
  set(portable_headers ${headers})
  file(GLOB_RECURSE headers RELATIVE ${CMAKE_SOURCE_DIR} CONFIGURE_DEPENDS
       app/*.h config/*.h platform/*.h saver/*.h tests/*.h)
  list(REMOVE_ITEM headers ${portable_headers})
endif()

add_custom_target(check_headers)
# ambrio_check_headers(NAME HEADER...)
function(ambrio_check_headers name)
  set(sources)
  foreach(header IN LISTS ARGN)
    string(MAKE_C_IDENTIFIER ${header} identifier)
    set(source ${CMAKE_BINARY_DIR}/generated/header_check/${identifier}.cpp)
    file(CONFIGURE OUTPUT ${source} CONTENT "#include \"${header}\"\n")
    list(APPEND sources ${source})
  endforeach()
  add_library(${name} OBJECT EXCLUDE_FROM_ALL ${sources})
  target_link_libraries(${name} PRIVATE ambrio_test_settings)
  add_dependencies(check_headers ${name})
endfunction()

if(WIN32)
  # What takes in the system's headers anyway may find them precompiled, and nothing but them.
  set(reaching platform/win32/WindowsHeaders.h)
  set(found TRUE)
  while(found)
    set(found FALSE)
    list(JOIN reaching "|" names)
    foreach(header IN LISTS headers)
      if(NOT header IN_LIST reaching)
        file(STRINGS ${CMAKE_SOURCE_DIR}/${header} including REGEX "^#include \"(${names})\"")
        if(including)
          list(APPEND reaching ${header})
          set(found TRUE)
        endif()
      endif()
    endforeach()
  endwhile()
  list(REMOVE_ITEM headers ${reaching})
  ambrio_check_headers(ambrio_headers_with_windows ${reaching})
  target_precompile_headers(ambrio_headers_with_windows PRIVATE ${WINDOWS_HEADERS})
endif()
ambrio_check_headers(ambrio_headers ${headers})
