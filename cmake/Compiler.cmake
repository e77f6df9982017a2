# Language level, warnings and visibility of everything that is built here.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_C_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wnon-virtual-dtor -Werror)

set(BMCI2C_SANITIZERS "" CACHE STRING "Sanitizers to build with, as for -fsanitize=")
if(BMCI2C_SANITIZERS)
  # GCC sees uninitialised values in its own library's <regex> once sanitizers instrument it.
  add_compile_options($<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
  add_compile_options(-fsanitize=${BMCI2C_SANITIZERS} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${BMCI2C_SANITIZERS})
endif()
