# The module that makes a process under Wine see files as Windows shows them.
set(WINDOWS_FILES_SOURCES
    tests/support/win32/ImportTable.cpp
    tests/windowsfiles/Changing.cpp
    tests/windowsfiles/ClearedBits.cpp
    tests/windowsfiles/FileFacts.cpp
    tests/windowsfiles/Looking.cpp
    tests/windowsfiles/WindowsFiles.cpp
)
