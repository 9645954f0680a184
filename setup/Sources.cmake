set(SETUP_START_SOURCES
    setup/AmbrioStart.cpp
)
