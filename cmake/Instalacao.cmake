# What `cmake --install` puts under the prefix, GNUInstallDirs' folders, every
# path relative so the tree can move: the shared library with its SONAME and
# development link, the public headers, the command line, the CMake package
# (find_package(ztolvan) gives ztolvan::ztolvan), ztolvan.pc, the manual page
# and example settings files.
include(CMakePackageConfigHelpers)

install(TARGETS ztolvan EXPORT ztolvanTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT biblioteca NAMELINK_COMPONENT desenvolvimento)
if(TARGET ztolvan_telas)
  install(TARGETS ztolvan_telas LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT telas NAMELINK_SKIP)
endif()
install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/ztolvan DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
  COMPONENT desenvolvimento)
install(TARGETS ztolvan_cli RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT linha_de_comando)
install(FILES ${PROJECT_SOURCE_DIR}/docs/ztolvan.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1
  COMPONENT linha_de_comando)
install(FILES ${PROJECT_SOURCE_DIR}/docs/exemplos/conexao.ini ${PROJECT_SOURCE_DIR}/docs/exemplos/veltra.ini
  DESTINATION ${CMAKE_INSTALL_DOCDIR}/examples COMPONENT linha_de_comando)

set(pasta_cmake ${CMAKE_INSTALL_LIBDIR}/cmake/ztolvan)
install(EXPORT ztolvanTargets NAMESPACE ztolvan:: DESTINATION ${pasta_cmake} COMPONENT desenvolvimento)
configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/ztolvanConfig.cmake.in
  ${CMAKE_BINARY_DIR}/ztolvanConfig.cmake INSTALL_DESTINATION ${pasta_cmake})
write_basic_package_version_file(${CMAKE_BINARY_DIR}/ztolvanConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_BINARY_DIR}/ztolvanConfig.cmake ${CMAKE_BINARY_DIR}/ztolvanConfigVersion.cmake
  DESTINATION ${pasta_cmake} COMPONENT desenvolvimento)

# pkg-config: the prefix found from the .pc file's own folder.
set(pasta_pc ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
file(RELATIVE_PATH PC_PREFIX_RELATIVO /prefixo/${pasta_pc} /prefixo)
string(REGEX REPLACE "/$" "" PC_PREFIX_RELATIVO "${PC_PREFIX_RELATIVO}")
configure_file(${PROJECT_SOURCE_DIR}/cmake/ztolvan.pc.in ${CMAKE_BINARY_DIR}/ztolvan.pc @ONLY)
install(FILES ${CMAKE_BINARY_DIR}/ztolvan.pc DESTINATION ${pasta_pc} COMPONENT desenvolvimento)
