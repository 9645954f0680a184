# What knows no window and compiles natively too.
set(APP_MODEL_SOURCES
    app/model/CommandSwitch.cpp
    app/model/ModeDispatch.cpp
    app/preview/model/PreviewCaption.cpp
)

set(APP_WIN32_SOURCES
    app/Main.cpp
    app/PasswordChange.cpp
    app/LibraryFailures.cpp
    app/WinMain.cpp
)

set(APP_PREVIEW_SOURCES
    app/preview/frmControl.cpp
    app/preview/PreviewFrame.cpp
    app/preview/PreviewPicture.cpp
)
