# RuneCommon::log, the platform log library: the NDK's log on Android, Debian's android-liblog
# elsewhere (kept in the android/ subfolder of the multiarch library directory).
if(TARGET RuneCommon::log)
  return()
endif()

add_library(RuneCommon::log INTERFACE IMPORTED)
if(ANDROID)
  set_target_properties(RuneCommon::log PROPERTIES INTERFACE_LINK_LIBRARIES log)
  return()
endif()

find_path(RUNE_LOG_INCLUDE_DIR android/log.h PATH_SUFFIXES android)
find_library(RUNE_LOG_LIBRARY log
  HINTS /usr/lib/${CMAKE_LIBRARY_ARCHITECTURE}/android
  PATH_SUFFIXES android NO_CMAKE_SYSTEM_PATH)
if(NOT RUNE_LOG_INCLUDE_DIR OR NOT RUNE_LOG_LIBRARY)
  message(FATAL_ERROR "Android's liblog was not found: install android-liblog-dev")
endif()
get_filename_component(RUNE_LOG_LIBRARY_DIR "${RUNE_LOG_LIBRARY}" DIRECTORY)
set_target_properties(RuneCommon::log PROPERTIES
  INTERFACE_INCLUDE_DIRECTORIES "${RUNE_LOG_INCLUDE_DIR}"
  # The dynamic loader does not search the android/ subfolder.
  INTERFACE_LINK_LIBRARIES "${RUNE_LOG_LIBRARY};-Wl,-rpath,${RUNE_LOG_LIBRARY_DIR}")
