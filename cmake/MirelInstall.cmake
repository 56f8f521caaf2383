include(CMakePackageConfigHelpers)

install(TARGETS mirel7 mirelfrw7 EXPORT mirelfrw7Targets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
  INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/src/mirel7 ${PROJECT_SOURCE_DIR}/src/mirelfrw7
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
  FILES_MATCHING PATTERN "*.h")

set(MIREL_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/mirelfrw7)
install(EXPORT mirelfrw7Targets NAMESPACE mirelfrw7:: DESTINATION ${MIREL_CMAKE_DIR})
configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/mirelfrw7Config.cmake.in
  ${PROJECT_BINARY_DIR}/mirelfrw7Config.cmake INSTALL_DESTINATION ${MIREL_CMAKE_DIR})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/mirelfrw7ConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/mirelfrw7Config.cmake ${PROJECT_BINARY_DIR}/mirelfrw7ConfigVersion.cmake
  DESTINATION ${MIREL_CMAKE_DIR})

# Relative to the .pc file, so that the package also works when installed with another --prefix.
file(RELATIVE_PATH MIREL_PC_TO_PREFIX ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
foreach(pc mirel7 mirelfrw7)
  configure_file(${PROJECT_SOURCE_DIR}/cmake/${pc}.pc.in ${PROJECT_BINARY_DIR}/${pc}.pc @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/${pc}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
endforeach()
