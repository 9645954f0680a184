set(SETTINGS_SOURCES
    settings/BackupSet.cpp
    settings/Flags.cpp
    settings/GeneralOptions.cpp
    settings/SetList.cpp
)
