set(BENCH_ENGINE_SOURCES
    tests/bench/EngineAlone.cpp
    tests/bench/LatencyFileSystem.cpp
)

set(BENCH_AHEAD_SOURCES
    tests/bench/AheadCost.cpp
    tests/bench/SlowCalls.cpp
    tests/support/win32/ImportTable.cpp
)

set(BENCH_LOOP_SOURCES
    tests/bench/BareLoop.cpp
)

set(BENCH_CAPTION_SOURCES
    tests/bench/CaptionCost.cpp
)

set(BENCH_EMPTY_SOURCES
    tests/bench/EmptyProgram.cpp
)

set(BENCH_START_SOURCES
    tests/bench/StartTime.cpp
)
