# bmci2c_library(TARGET FOLDER <folder below src> [SOURCES ...] [LINKS ...] [PRIVATE_LINKS ...]
#                [REPLACEABLE ...] [NO_UNITY])
#
# One static library per folder (an interface library when it has no sources). Its headers are
# reached as <folder/Header.h>, and only by targets that link it: each library has an include
# folder of its own that holds a link to its sources, so an include against the direction of the
# dependencies does not build.
#
# With BMCI2C_UNITY the compiler reads several sources as one, which takes a quarter of the time; names
# in anonymous namespaces must then differ within a library. REPLACEABLE names the sources whose
# functions tests replace at link time: each stays an object of its own, which the linker leaves out.
# NO_UNITY is for a library whose sources do not go together.
option(BMCI2C_UNITY "Compile several sources of a library as one" OFF)

function(bmci2c_library target)
  cmake_parse_arguments(ARG "NO_UNITY" "FOLDER" "SOURCES;LINKS;PRIVATE_LINKS;REPLACEABLE" ${ARGN})
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
    if(BMCI2C_UNITY AND NOT ARG_NO_UNITY)
      set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 24)
      # The warning takes the sources that are read as one for headers.
      target_compile_options(${target} PRIVATE -Wno-subobject-linkage)
    endif()
    foreach(source IN LISTS ARG_REPLACEABLE)
      if(NOT EXISTS "${CMAKE_CURRENT_SOURCE_DIR}/${source}")
        message(FATAL_ERROR "${target}: REPLACEABLE names ${source}, which is not there.")
      endif()
      set_source_files_properties(${source} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
    endforeach()
  else()
    add_library(${target} INTERFACE)
    target_include_directories(${target} INTERFACE "${include_root}")
    target_link_libraries(${target} INTERFACE ${ARG_LINKS})
  endif()
endfunction()
