# Stops the configuration when a source file lies in a room but in no list of a Sources.cmake, so that
# no test can be forgotten.

file(GLOB_RECURSE found RELATIVE ${CMAKE_SOURCE_DIR} CONFIGURE_DEPENDS
     app/*.cpp config/*.cpp saver/*.cpp engine/*.cpp settings/*.cpp platform/*.cpp tests/*.cpp setup/*.cpp)
get_cmake_property(variables VARIABLES)
set(listed)
foreach(variable IN LISTS variables)
  if(variable MATCHES "^[A-Z0-9_]+_SOURCES$" AND NOT variable MATCHES "^CMAKE")
    list(APPEND listed ${${variable}})
  endif()
endforeach()
foreach(source IN LISTS found)
  if(NOT source IN_LIST listed)
    message(FATAL_ERROR "${source} is built by no target: name it in its room's Sources.cmake")
  endif()
endforeach()
