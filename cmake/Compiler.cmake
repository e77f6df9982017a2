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

include(CheckCXXCompilerFlag)
include(CheckPIESupported)
check_pie_supported()
check_cxx_compiler_flag(-fcf-protection=full BMCI2C_HAS_CET)

# What Debian's hardening=+all sets, also without Debian's tools: the module runs in a server that
# is often root. Sanitizers bring checks of their own.
set(BMCI2C_HARDENING -fstack-protector-strong -fstack-clash-protection)
if(BMCI2C_HAS_CET)
  list(APPEND BMCI2C_HARDENING -fcf-protection=full)
endif()

set(BMCI2C_SANITIZERS "" CACHE STRING "Sanitizers to build with, as for -fsanitize=")
string(REPLACE "," ";" BMCI2C_SANITIZER_LIST "${BMCI2C_SANITIZERS}")
if(BMCI2C_SANITIZERS)
  add_compile_options(-fsanitize=${BMCI2C_SANITIZERS} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${BMCI2C_SANITIZERS})
else()
  add_compile_options(${BMCI2C_HARDENING})
  # The C library checks buffer sizes only in optimised code.
  add_compile_options($<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:-U_FORTIFY_SOURCE>
    $<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:-D_FORTIFY_SOURCE=2>)
  add_link_options(-Wl,-z,relro,-z,now,-z,noexecstack)
endif()
