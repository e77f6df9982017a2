# Run by `cmake --install`: what an installation for the whole machine needs outside its prefix. The
# settings file and the service's user have one place and one name, whatever the prefix.
if(NOT CMAKE_INSTALL_PREFIX MATCHES "^/usr(/local)?/?$")
  return()
endif()

if(EXISTS "$ENV{DESTDIR}/etc/bmci2c/platform.toml")
  message(STATUS "Kept as it is: $ENV{DESTDIR}/etc/bmci2c/platform.toml")
else()
  file(INSTALL "${CMAKE_CURRENT_LIST_DIR}/../data/platform.toml" DESTINATION "/etc/bmci2c")
endif()

# A package has maintainer scripts for the rest.
if(NOT "$ENV{DESTDIR}" STREQUAL "")
  return()
endif()
include("${CMAKE_CURRENT_LIST_DIR}/ServiceUser.cmake")
