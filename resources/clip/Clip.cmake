# The clip beside the program. What draws it runs on the build machine, so it is compiled for that
# and not for Windows.

find_program(AMBRIO_HOST_COMPILER NAMES c++ g++ clang++ REQUIRED)
set(clip_sources)
foreach(source MakeClip AviFile Picture)
  list(APPEND clip_sources ${CMAKE_SOURCE_DIR}/resources/clip/${source}.cpp)
endforeach()
file(GLOB clip_headers CONFIGURE_DEPENDS resources/clip/*.h)
add_custom_command(
  OUTPUT generated/MakeClip
  COMMAND ${AMBRIO_HOST_COMPILER} -std=c++20 -O2 -Wall -Wextra -Werror ${clip_sources}
          -o generated/MakeClip
  DEPENDS ${clip_sources} ${clip_headers}
  COMMENT "Compiling what draws filecopy.avi"
  VERBATIM)
set(clip ${AMBRIO_PRODUCT_FOLDER}/filecopy.avi)
add_custom_command(
  OUTPUT ${clip}
  COMMAND ${CMAKE_COMMAND} -E make_directory ${AMBRIO_PRODUCT_FOLDER}
  COMMAND generated/MakeClip ${clip}
  DEPENDS generated/MakeClip
  COMMENT "Drawing filecopy.avi"
  VERBATIM)
add_custom_target(clip DEPENDS ${clip})
