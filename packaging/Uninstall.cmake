# cmake -DBUILD=<build folder> -DPREFIX=<prefix> -P Uninstall.cmake
#
# Removes what `cmake --install` puts there, but neither settings that were changed nor the service's user.
file(REMOVE_RECURSE "${BUILD}/uninstall")
execute_process(
  COMMAND "${CMAKE_COMMAND}" -E env "DESTDIR=${BUILD}/uninstall"
    "${CMAKE_COMMAND}" --install "${BUILD}" --prefix "${PREFIX}"
  OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
file(GLOB_RECURSE files RELATIVE "${BUILD}/uninstall" "${BUILD}/uninstall/*")

set(folders "")
foreach(file IN LISTS files)
  set(installed "$ENV{DESTDIR}/${file}")
  if(NOT EXISTS "${installed}")
    continue()
  endif()
  if(file MATCHES "^etc/")
    execute_process(COMMAND "${CMAKE_COMMAND}" -E compare_files "${BUILD}/uninstall/${file}" "${installed}"
      RESULT_VARIABLE is_changed OUTPUT_QUIET ERROR_QUIET)
    if(is_changed)
      message(STATUS "Changed, so it stays: ${installed}")
      continue()
    endif()
  endif()
  message(STATUS "Removing: ${installed}")
  file(REMOVE "${installed}")
  cmake_path(GET installed PARENT_PATH folder)
  list(APPEND folders "${folder}")
endforeach()
file(REMOVE_RECURSE "${BUILD}/uninstall")

# Folders of our own, the deepest first, when nothing else is in them.
list(REMOVE_DUPLICATES folders)
list(SORT folders ORDER DESCENDING)
foreach(folder IN LISTS folders)
  while(folder MATCHES "/(bmci2c|cmpi)(/|$)")
    file(GLOB rest "${folder}/*" "${folder}/.*")
    if(rest)
      break()
    endif()
    file(REMOVE_RECURSE "${folder}")
    cmake_path(GET folder PARENT_PATH folder)
  endwhile()
endforeach()
message(STATUS "The user bmci2c stays while it exists. To remove it: userdel bmci2c")
