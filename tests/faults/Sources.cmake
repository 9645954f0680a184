set(FAULT_TEST_SOURCES
    tests/faults/FaultMatrixTest.cpp
    tests/faults/FaultScene.cpp
    tests/faults/FaultStage.cpp
    tests/faults/RunFaultTest.cpp
)
