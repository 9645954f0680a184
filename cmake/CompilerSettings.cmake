# How every target of the project is compiled and linked.

add_library(ambrio_compiler_settings INTERFACE)
target_compile_features(ambrio_compiler_settings INTERFACE cxx_std_20)
target_include_directories(ambrio_compiler_settings INTERFACE ${CMAKE_SOURCE_DIR}
                                                              ${CMAKE_BINARY_DIR}/generated)
target_compile_options(
  ambrio_compiler_settings INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion
                                     -Wnon-virtual-dtor -Woverloaded-virtual -Werror)

if(WIN32)
  target_compile_definitions(
    ambrio_compiler_settings INTERFACE UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN
                                       WINVER=0x0601 _WIN32_WINNT=0x0601)
  # No time stamp: the same sources give the same bytes.
  target_link_options(ambrio_compiler_settings INTERFACE -static -s -Wl,--no-insert-timestamp)
  # Windows 7 and later; what is older refuses the file instead of failing in it.
  target_link_options(ambrio_compiler_settings INTERFACE -Wl,--major-subsystem-version,6
                                                         -Wl,--minor-subsystem-version,1)
  # What nothing calls stays out of the program.
  target_compile_options(ambrio_compiler_settings INTERFACE -ffunction-sections -fdata-sections)
  target_link_options(ambrio_compiler_settings INTERFACE -Wl,--gc-sections)
  # The walk goes as deep as the folders do, at some 700 bytes a level.
  target_link_options(ambrio_compiler_settings INTERFACE -Wl,--stack,16777216)
endif()

if(AMBRIO_SANITIZE)
  # fuzzer-no-link: the fuzzers see in the same objects which ways an input has taken.
  set(sanitizers -fsanitize=address,undefined,fuzzer-no-link)
  target_compile_options(ambrio_compiler_settings INTERFACE ${sanitizers} -fno-sanitize-recover=all)
  target_link_options(ambrio_compiler_settings INTERFACE ${sanitizers})
endif()

if(AMBRIO_WATCH_THREADS)
  target_compile_options(ambrio_compiler_settings INTERFACE -fsanitize=thread)
  target_link_options(ambrio_compiler_settings INTERFACE -fsanitize=thread)
endif()

find_program(AMBRIO_CCACHE ccache)
if(AMBRIO_CCACHE)
  # Without this it keeps nothing that was compiled with precompiled headers.
  set(CMAKE_CXX_COMPILER_LAUNCHER
      ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
      ${AMBRIO_CCACHE})
endif()
