# The fuzzers and what they share; the main program of each; the tests that feed them their seeds.
set(FUZZ_SOURCES
    tests/fuzz/CommandLineFuzzer.cpp
    tests/fuzz/DestinationFolderFuzzer.cpp
    tests/fuzz/FuzzInput.cpp
    tests/fuzz/RunFuzzer.cpp
    tests/fuzz/RunScene.cpp
    tests/fuzz/SetListFuzzer.cpp
    tests/fuzz/TextConversionFuzzer.cpp
)

set(FUZZ_PROGRAM_SOURCES
    tests/fuzz/FuzzMain.cpp
)

set(FUZZ_SEED_TEST_SOURCES
    tests/fuzz/SeedsTest.cpp
)
