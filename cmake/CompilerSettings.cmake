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
  # The walk goes as deep as the folders do, at some 700 bytes a level.
  target_link_options(ambrio_compiler_settings INTERFACE -Wl,--stack,16777216)
endif()

if(AMBRIO_SANITIZE)
  # Some optimisation, as the tests run whole backups by the hundred.
  target_compile_options(ambrio_compiler_settings INTERFACE -O1 -fsanitize=address,undefined
                                                            -fno-sanitize-recover=all)
  # With sanitizers GCC sees it in the standard library's regex; the other builds check it.
  target_compile_options(ambrio_compiler_settings
                         INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
  target_link_options(ambrio_compiler_settings INTERFACE -fsanitize=address,undefined)
endif()

if(AMBRIO_FUZZ)
  target_compile_options(ambrio_compiler_settings INTERFACE -fsanitize=fuzzer-no-link)
endif()

find_program(AMBRIO_CCACHE ccache)
if(AMBRIO_CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${AMBRIO_CCACHE})
endif()
