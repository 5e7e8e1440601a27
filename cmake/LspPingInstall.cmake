# Installs the libraries, their headers in the tree that they are included by, and the tool, so that
# `find_package( LspPing )` gives LspPing::LspPing and LspPing::Platform as they are inside of the
# project.

include( CMakePackageConfigHelpers )

set( packageFolder ${CMAKE_INSTALL_LIBDIR}/cmake/LspPing )

install( TARGETS LspPing LspPingPlatform EXPORT LspPingTargets
         LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} )
install( DIRECTORY ${PROJECT_SOURCE_DIR}/MplsUtils DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
         FILES_MATCHING PATTERN "*.h" )
install( EXPORT LspPingTargets NAMESPACE LspPing:: DESTINATION ${packageFolder} )

configure_package_config_file( ${CMAKE_CURRENT_LIST_DIR}/LspPingConfig.cmake.in
                               ${PROJECT_BINARY_DIR}/LspPingConfig.cmake
                               INSTALL_DESTINATION ${packageFolder} )
write_basic_package_version_file( ${PROJECT_BINARY_DIR}/LspPingConfigVersion.cmake
                                  COMPATIBILITY SameMajorVersion )
install( FILES ${PROJECT_BINARY_DIR}/LspPingConfig.cmake
               ${PROJECT_BINARY_DIR}/LspPingConfigVersion.cmake
         DESTINATION ${packageFolder} )

# The libraries find each other, and the tool finds them, wherever the prefix is moved to.
set_target_properties( LspPing PROPERTIES INSTALL_RPATH "$ORIGIN" )
if( TARGET lspping )
   file( RELATIVE_PATH libraries ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR} )
   set_target_properties( lspping PROPERTIES INSTALL_RPATH "$ORIGIN/${libraries}" )
   install( TARGETS lspping RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} )
endif()
