# The product. It is named Ambrio.scr, as the display settings look for that ending.
ambrio_room(saver PRECOMPILED windows SOURCES ${SAVER_WIN32_SOURCES}
            LINKS ambrio_saver_model ambrio_saver_animation ambrio_engine)
ambrio_room(config PRECOMPILED windows SOURCES ${CONFIG_WIN32_SOURCES} LINKS ambrio_config_model)
ambrio_room(preview PRECOMPILED windows SOURCES ${APP_PREVIEW_SOURCES} LINKS ambrio_app_model ambrio_saver)

# What the program carries in itself; the unit tests carry the same.
configure_file(resources/Ambrio.manifest.in generated/Ambrio.manifest @ONLY)
set(AMBRIO_RESOURCES ${CMAKE_SOURCE_DIR}/resources/Ambrio.rc)
file(GLOB resource_parts CONFIGURE_DEPENDS resources/*.rc resources/*.h resources/*.ico)
list(APPEND resource_parts ${CMAKE_BINARY_DIR}/generated/Ambrio.manifest
     ${CMAKE_BINARY_DIR}/generated/ProductVersion.h)
set_source_files_properties(${AMBRIO_RESOURCES} PROPERTIES OBJECT_DEPENDS "${resource_parts}")

add_executable(Ambrio WIN32 ${APP_WIN32_SOURCES} ${AMBRIO_RESOURCES})
set_target_properties(Ambrio PROPERTIES SUFFIX .scr RUNTIME_OUTPUT_DIRECTORY
                                                    ${AMBRIO_PRODUCT_FOLDER})
# The map tells which libraries have come in (scripts/package names them).
target_link_options(Ambrio PRIVATE -municode -Wl,-Map,${CMAKE_BINARY_DIR}/Ambrio.map)
target_link_libraries(Ambrio PRIVATE ambrio_app_model ambrio_preview ambrio_saver ambrio_config)
ambrio_use_precompiled(Ambrio windows)
ambrio_batches(Ambrio 12)

include(setup/Setup.cmake)
include(resources/clip/Clip.cmake)
include(resources/help/Help.cmake)
add_dependencies(Ambrio clip help_files)
