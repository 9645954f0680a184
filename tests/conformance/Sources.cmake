# One suite for every FileSystem, built into the unit tests.
set(CONFORMANCE_TEST_SOURCES
    tests/conformance/CopyConformance.cpp
    tests/conformance/FileConformance.cpp
    tests/conformance/FileSystemConformance.cpp
    tests/conformance/FileSystemWorlds.cpp
    tests/conformance/FolderConformance.cpp
    tests/conformance/LogConformance.cpp
    tests/conformance/MemoryWorld.cpp
    tests/conformance/NameConformance.cpp
    tests/conformance/PreparedCopyConformance.cpp
)

set(CONFORMANCE_TEST_WIN32_SOURCES
    tests/conformance/win32/GivenAway.cpp
    tests/conformance/win32/Junction.cpp
    tests/conformance/win32/Win32World.cpp
    tests/support/win32/WindowsFiles.cpp
)
