# The product. It is named Ambrio.scr, as the display settings look for that ending.
if(SAVER_WIN32_SOURCES)
  ambrio_room(saver SOURCES ${SAVER_WIN32_SOURCES} LINKS ambrio_saver_animation)
endif()
if(CONFIG_WIN32_SOURCES)
  ambrio_room(config SOURCES ${CONFIG_WIN32_SOURCES} LINKS ambrio_config_model)
endif()
