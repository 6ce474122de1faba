include(CMakePackageConfigHelpers)

install(TARGETS krolle_host krolle EXPORT KrolleTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(DIRECTORY src/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/krolle
  FILES_MATCHING PATTERN "*.h")
install(EXPORT KrolleTargets NAMESPACE Krolle::
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Krolle)

configure_package_config_file(cmake/KrolleConfig.cmake.in
  ${CMAKE_CURRENT_BINARY_DIR}/KrolleConfig.cmake
  INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Krolle)
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/KrolleConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/KrolleConfig.cmake
              ${CMAKE_CURRENT_BINARY_DIR}/KrolleConfigVersion.cmake
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Krolle)
