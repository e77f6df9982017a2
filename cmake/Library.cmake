# bmci2c_library(TARGET FOLDER <folder below src> [SOURCES ...] [LINKS ...] [PRIVATE_LINKS ...])
#
# One static library per folder (an interface library when it has no sources). Its headers are
# reached as <folder/Header.h>, and only by targets that link it: each library has an include
# folder of its own that holds a link to its sources, so an include against the direction of the
# dependencies does not build.
function(bmci2c_library target)
  cmake_parse_arguments(ARG "" "FOLDER" "SOURCES;LINKS;PRIVATE_LINKS" ${ARGN})
  cmake_path(GET ARG_FOLDER FILENAME name)
  set_property(GLOBAL APPEND PROPERTY BMCI2C_LIBRARIES "${target}=${name}")
  set(include_root "${CMAKE_BINARY_DIR}/include/${target}")
  cmake_path(GET ARG_FOLDER PARENT_PATH parent)
  file(MAKE_DIRECTORY "${include_root}/${parent}")
  file(CREATE_LINK "${CMAKE_SOURCE_DIR}/src/${ARG_FOLDER}" "${include_root}/${ARG_FOLDER}" SYMBOLIC)
  if(ARG_SOURCES)
    add_library(${target} STATIC ${ARG_SOURCES})
    target_include_directories(${target} PUBLIC "${include_root}")
    target_link_libraries(${target} PUBLIC ${ARG_LINKS} PRIVATE ${ARG_PRIVATE_LINKS})
  else()
    add_library(${target} INTERFACE)
    target_include_directories(${target} INTERFACE "${include_root}")
    target_link_libraries(${target} INTERFACE ${ARG_LINKS})
  endif()
endfunction()
