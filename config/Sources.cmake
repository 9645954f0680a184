# What the dialogs decide knows no window and compiles natively too.
set(CONFIG_MODEL_SOURCES
    config/model/CentreForm.cpp
    config/model/CopyRulesFrame.cpp
    config/model/DialogOptions.cpp
    config/model/DialogTexts.cpp
    config/model/DirectoryTree.cpp
    config/model/DriveText.cpp
    config/model/HelpPages.cpp
    config/model/SecondarySavers.cpp
    config/model/SetListModel.cpp
    config/model/SetProperties.cpp
)

set(CONFIG_WIN32_SOURCES
    config/ConfigurationMode.cpp
    config/DirectoryListBox.cpp
    config/FolderBox.cpp
    config/Form.cpp
    config/frmAbout.cpp
    config/frmBrowse.cpp
    config/frmConfiguration.cpp
    config/frmIncludeExclude.cpp
    config/frmProperties.cpp
    config/SoleConfiguration.cpp
    config/SystemInformation.cpp
    config/WebLink.cpp
)
