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

# What a header takes in anyway it may find precompiled, and nothing else: these sets, of which each
# header gets the first that it reaches whole. Where few headers have more in common it is quicker
# to go without a further set.
set(check_with_windows_string ${WINDOWS_HEADERS} <string>)
set(check_with_windows ${WINDOWS_HEADERS})
set(check_with_more <functional> <memory> <optional> <string>)
set(check_with_string <string>)
set(check_with_nothing)
if(WIN32)
  set(sets windows_string windows string nothing)
else()
  set(sets more string nothing)
endif()

add_custom_target(check_headers)
foreach(set IN LISTS sets)
  set(sources)
  set(others)
  foreach(header IN LISTS headers)
    ambrio_reaches(reaches ${header} ${check_with_${set}})
    if(reaches)
      string(MAKE_C_IDENTIFIER ${header} identifier)
      set(source ${CMAKE_BINARY_DIR}/generated/header_check/${identifier}.cpp)
      file(CONFIGURE OUTPUT ${source} CONTENT "#include \"${header}\"\n")
      list(APPEND sources ${source})
    else()
      list(APPEND others ${header})
    endif()
  endforeach()
  set(headers ${others})
  if(sources)
    set(name ambrio_headers_with_${set})
    add_library(${name} OBJECT EXCLUDE_FROM_ALL ${sources})
    target_link_libraries(${name} PRIVATE ambrio_test_settings)
    if(check_with_${set})
      ambrio_precompile(headers_${set} LINKS ambrio_test_settings HEADERS ${check_with_${set}})
      ambrio_use_precompiled(${name} headers_${set})
    endif()
    add_dependencies(check_headers ${name})
  endif()
endforeach()
