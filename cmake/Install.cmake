# Where `cmake --install` puts the programs and their files, laid out as a
# Debian user expects them, and the .deb that `cpack -G DEB` builds from the
# same rules. The help pages are installed by src/gui/help.
include(GNUInstallDirs)

set(CMAKE_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(QV_PACKAGING ${PROJECT_SOURCE_DIR}/packaging)
set(QV_DOC_DIR ${CMAKE_INSTALL_DATADIR}/doc/quorvanta)

install(TARGETS quorvanta quorvanta-cli RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(FILES ${QV_PACKAGING}/quorvanta.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${QV_PACKAGING}/quorvanta.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages)
install(FILES ${PROJECT_SOURCE_DIR}/resources/icons/Quorvanta.svg
  DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps RENAME quorvanta.svg)
install(FILES ${QV_PACKAGING}/copyright DESTINATION ${QV_DOC_DIR})

# The manual pages name the version of project(VERSION).
foreach(page quorvanta.1 quorvanta-cli.1)
  configure_file(${PROJECT_SOURCE_DIR}/man/${page}.in ${CMAKE_BINARY_DIR}/man/${page} @ONLY)
endforeach()

# Manual pages and the changelog go in gzipped, without a time stamp in the
# gzip header, so the package is reproducible.
find_program(QV_GZIP gzip REQUIRED)
set(QV_GZIPPED)
foreach(source ${CMAKE_BINARY_DIR}/man/quorvanta.1 ${CMAKE_BINARY_DIR}/man/quorvanta-cli.1 ${QV_PACKAGING}/changelog)
  get_filename_component(name ${source} NAME)
  set(out ${CMAKE_BINARY_DIR}/packaging/${name}.gz)
  add_custom_command(
    OUTPUT ${out}
    COMMAND ${CMAKE_COMMAND} -E copy ${source} ${CMAKE_BINARY_DIR}/packaging/${name}
    COMMAND ${QV_GZIP} -9nf ${CMAKE_BINARY_DIR}/packaging/${name}
    DEPENDS ${source}
    COMMENT "Compressing ${name}"
    VERBATIM)
  list(APPEND QV_GZIPPED ${out})
endforeach()
add_custom_target(packaging_files ALL DEPENDS ${QV_GZIPPED})
install(FILES ${CMAKE_BINARY_DIR}/packaging/quorvanta.1.gz ${CMAKE_BINARY_DIR}/packaging/quorvanta-cli.1.gz
  DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES ${CMAKE_BINARY_DIR}/packaging/changelog.gz DESTINATION ${QV_DOC_DIR})

# The bundled samples: the committed controller exports and the projects,
# logs and vaporix-VIS export the build writes.
install(DIRECTORY ${PROJECT_SOURCE_DIR}/resources/samples/ DESTINATION ${CMAKE_INSTALL_DATADIR}/quorvanta/samples)
install(FILES ${CMAKE_BINARY_DIR}/samples/vaporix-keller.qvj ${CMAKE_BINARY_DIR}/samples/cellar-climate.qvj
  ${CMAKE_BINARY_DIR}/samples/cellar-vis.csv DESTINATION ${CMAKE_INSTALL_DATADIR}/quorvanta/samples)
install(DIRECTORY ${CMAKE_BINARY_DIR}/samples/ventimar-log DESTINATION ${CMAKE_INSTALL_DATADIR}/quorvanta/samples)
# The vaporix-VIS sample is Latin-1 on purpose, as the devices write it.
install(FILES ${QV_PACKAGING}/lintian-overrides DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides RENAME quorvanta)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME quorvanta)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_VENDOR "The Quorvanta developers")
set(CPACK_PACKAGE_CONTACT "The Quorvanta developers <maintainers@users.noreply.c-seed-5ee65fa3.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "charts of climate recordings of building-climate controllers")
set(CPACK_PACKAGE_DESCRIPTION
  "Quorvanta imports the sampling files of building-climate controllers
(Ventimar controller CSV exports and binary sampling logs, vaporix-VIS CSV
exports) and shows temperatures, humidity and the controller's states as
interactive charts, saved as compressed projects, printed or exported as PDF.
quorvanta-cli converts, inspects and prints the same files without a window.")
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE "https://quorvanta.example.org")
# The library packages come from dpkg-shlibdeps when it is there, otherwise
# from this list (Debian 12 names).
find_program(QV_SHLIBDEPS dpkg-shlibdeps)
if(QV_SHLIBDEPS)
  set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
else()
  set(CPACK_DEBIAN_PACKAGE_DEPENDS "libqt5core5a, libqt5gui5, libqt5widgets5, libqt5charts5, libqt5printsupport5, \
libqt5network5, libqt5svg5, libdeflate0, libstdc++6, libc6")
endif()
include(CPack)
