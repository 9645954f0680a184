# The doubles.
set(TEST_SUPPORT_SOURCES
    tests/support/CountingFileSystem.cpp
    tests/support/EngineBench.cpp
    tests/support/FailingFileSystem.cpp
    tests/support/MemoryFileSystem.cpp
    tests/support/MemoryFileSystemSetup.cpp
    tests/support/MemoryHandles.cpp
    tests/support/MemoryNode.cpp
    tests/support/MemoryPath.cpp
    tests/support/MemoryPreparedCopy.cpp
    tests/support/NameFolding.cpp
    tests/support/ObservedFileSystem.cpp
    tests/support/RunEvents.cpp
    tests/support/TestCodePage.cpp
    tests/support/WatchedRun.cpp
)

# With the threads of the standard library, which the compiler for Windows lacks.
set(TEST_SUPPORT_HOST_SOURCES
    tests/support/LockedFileSystem.cpp
    tests/support/ThreadPool.cpp
)
