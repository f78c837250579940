# Installs the libraries, their headers, the rune-sdp tool, the CMake package RuneCommon and the
# pkg-config modules.
include(CMakePackageConfigHelpers)

set(RUNE_CMAKE_INSTALL_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/RuneCommon)

install(TARGETS runecommon runesdp EXPORT RuneCommonTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(DIRECTORY utilities/include/ common/include/ sdp/include/
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(TARGETS rune-sdp RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(EXPORT RuneCommonTargets NAMESPACE RuneCommon:: DESTINATION ${RUNE_CMAKE_INSTALL_DIR})

configure_package_config_file(cmake/RuneCommonConfig.cmake.in
  ${CMAKE_CURRENT_BINARY_DIR}/RuneCommonConfig.cmake
  INSTALL_DESTINATION ${RUNE_CMAKE_INSTALL_DIR})
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/RuneCommonConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES
    ${CMAKE_CURRENT_BINARY_DIR}/RuneCommonConfig.cmake
    ${CMAKE_CURRENT_BINARY_DIR}/RuneCommonConfigVersion.cmake
    cmake/RuneCommonPlatformLog.cmake
  DESTINATION ${RUNE_CMAKE_INSTALL_DIR})

if(ANDROID)
  set(RUNE_PC_LOG_CFLAGS "")
  set(RUNE_PC_LOG_LIBS "-llog")
else()
  set(RUNE_PC_LOG_CFLAGS "-I${RUNE_LOG_INCLUDE_DIR}")
  set(RUNE_PC_LOG_LIBS "-L${RUNE_LOG_LIBRARY_DIR} -llog -Wl,-rpath,${RUNE_LOG_LIBRARY_DIR}")
endif()
# Relocatable: the prefix is found from where the .pc file lies.
file(RELATIVE_PATH RUNE_PC_PREFIX "/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/")
configure_file(cmake/runecommon.pc.in ${CMAKE_CURRENT_BINARY_DIR}/runecommon.pc @ONLY)
configure_file(cmake/runesdp.pc.in ${CMAKE_CURRENT_BINARY_DIR}/runesdp.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/runecommon.pc ${CMAKE_CURRENT_BINARY_DIR}/runesdp.pc
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
