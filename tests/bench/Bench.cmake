# What scripts/bench measures, and what it measures it with. Optimised as the product is, and built
# only when asked for.
function(ambrio_bench_program name)
  cmake_parse_arguments(PROGRAM "" "" "SOURCES;LINKS" ${ARGN})
  add_executable(${name} EXCLUDE_FROM_ALL ${PROGRAM_SOURCES})
  target_link_libraries(${name} PRIVATE ambrio_compiler_settings ${PROGRAM_LINKS})
  target_link_options(${name} PRIVATE -municode)
  add_dependencies(bench_programs ${name})
endfunction()

add_custom_target(bench_programs DEPENDS Ambrio)
ambrio_bench_program(EngineAlone SOURCES ${BENCH_ENGINE_SOURCES} LINKS ambrio_test_support ambrio_engine)
ambrio_bench_program(AheadCost SOURCES ${BENCH_AHEAD_SOURCES} LINKS ambrio_test_support ambrio_engine psapi)
ambrio_bench_program(BareLoop SOURCES ${BENCH_LOOP_SOURCES})
ambrio_bench_program(CaptionCost SOURCES ${BENCH_CAPTION_SOURCES} LINKS ambrio_saver)
ambrio_bench_program(EmptyProgram SOURCES ${BENCH_EMPTY_SOURCES})
ambrio_bench_program(StartTime SOURCES ${BENCH_START_SOURCES})
