# What an installation has beside the program; the installer itself is made by scripts/package.
add_executable(AmbrioStart WIN32 ${SETUP_START_SOURCES} setup/AmbrioStart.rc)
set_target_properties(AmbrioStart PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${AMBRIO_PRODUCT_FOLDER})
set_source_files_properties(setup/AmbrioStart.rc PROPERTIES OBJECT_DEPENDS "${resource_parts}")
target_link_libraries(AmbrioStart PRIVATE ambrio_compiler_settings)
target_link_options(AmbrioStart PRIVATE -municode)
add_dependencies(Ambrio AmbrioStart)
