# The reference model: what a run must come to, told without the engine.
set(REFERENCE_MODEL_SOURCES
    tests/model/ModelDisk.cpp
    tests/model/ReferenceRun.cpp
    tests/model/ReferenceWalk.cpp
    tests/model/RunOutcome.cpp
    tests/model/RunRecord.cpp
    tests/model/Stage.cpp
)
