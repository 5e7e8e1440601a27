# Installs the libraries, their headers in the tree that they are included by, and the tool, so that
# `find_package( LspPing )` gives LspPing::Message, LspPing::Ext, LspPing::LspPing and LspPing::Platform as they are
# inside of the project.

include( CMakePackageConfigHelpers )

set( packageFolder ${CMAKE_INSTALL_LIBDIR}/cmake/LspPing )

install( TARGETS LspPingMessage LspPingExt LspPing LspPingPlatform EXPORT LspPingTargets
         LIBRARY FILE_SET HEADERS FILE_SET generated )
install( EXPORT LspPingTargets NAMESPACE LspPing:: DESTINATION ${packageFolder} )

configure_package_config_file( ${CMAKE_CURRENT_LIST_DIR}/LspPingConfig.cmake.in
                               ${PROJECT_BINARY_DIR}/LspPingConfig.cmake
                               INSTALL_DESTINATION ${packageFolder} )
write_basic_package_version_file( ${PROJECT_BINARY_DIR}/LspPingConfigVersion.cmake
                                  COMPATIBILITY SameMajorVersion )
install( FILES ${PROJECT_BINARY_DIR}/LspPingConfig.cmake
               ${PROJECT_BINARY_DIR}/LspPingConfigVersion.cmake
         DESTINATION ${packageFolder} )

# The libraries find each other, and the tool finds them, wherever the prefix is moved to. They are
# built with the paths that they are installed with: what CMake is to change while installing has an
# empty entry until then, and that is the working directory to the loader.
set_target_properties( LspPingMessage LspPingExt LspPing PROPERTIES
   INSTALL_RPATH "$ORIGIN" BUILD_WITH_INSTALL_RPATH ON )
if( TARGET lspping )
   file( RELATIVE_PATH libraries ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR} )
   set( paths "$ORIGIN/${libraries}" "$ORIGIN/../lib" ) # the latter in the build's own folder
   list( REMOVE_DUPLICATES paths )
   set_target_properties( lspping PROPERTIES
      INSTALL_RPATH "${paths}" INSTALL_RPATH_USE_LINK_PATH ON BUILD_WITH_INSTALL_RPATH ON )
   install( TARGETS lspping RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} )
endif()
