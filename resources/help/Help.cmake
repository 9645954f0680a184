# The help beside the program: a file for the viewer of older Windows with its contents, and a page
# for any browser.

find_program(AMBRIO_HALIBUT halibut REQUIRED)
find_program(AMBRIO_FAKETIME faketime REQUIRED)
file(GLOB help_sources CONFIGURE_DEPENDS resources/help/*.but resources/help/*.css
     resources/help/make-help docs/*.png)
set(help)
foreach(name Ambrio.HLP Ambrio.cnt Ambrio.html)
  list(APPEND help ${AMBRIO_PRODUCT_FOLDER}/${name})
endforeach()
add_custom_command(
  OUTPUT ${help}
  COMMAND ${CMAKE_SOURCE_DIR}/resources/help/make-help ${PROJECT_VERSION} ${AMBRIO_PRODUCT_FOLDER}
  DEPENDS ${help_sources}
  COMMENT "Writing the help"
  VERBATIM)
add_custom_target(help_files DEPENDS ${help})
