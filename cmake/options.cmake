# The project's compile and link options, for its own targets alone.
add_library(tidemark_options INTERFACE)
target_compile_features(tidemark_options INTERFACE cxx_std_20)
target_compile_options(tidemark_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror)
if(MINGW)
  # gcc 12 sees overlaps in std::string that are none (its bug 105651).
  target_compile_options(tidemark_options INTERFACE -Wno-restrict)
endif()
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # So that ccache can tell what a precompiled header holds.
  target_compile_options(tidemark_options INTERFACE -fpch-preprocess)
endif()
if(TIDEMARK_SANITIZE)
  set(sanitizers -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  # The fuzz targets are told which branches an input takes.
  target_compile_options(tidemark_options INTERFACE ${sanitizers} -fsanitize=fuzzer-no-link)
  target_link_options(tidemark_options INTERFACE ${sanitizers})
endif()
