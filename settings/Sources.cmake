set(SETTINGS_SOURCES
    settings/BackupSet.cpp
    settings/GeneralOptions.cpp
    settings/SetList.cpp
)
