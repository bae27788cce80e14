# Installing Mensura (cmake --install) and packaging it as a Debian package (cpack -G DEB).
# Installs the two programs, the desktop entry, the AppStream metainfo, the application icon in
# the hicolor theme and the help topics, in the places GNUInstallDirs names.
if(NOT DEFINED CMAKE_INSTALL_DOCDIR)
    set(CMAKE_INSTALL_DOCDIR "share/doc/mensura" CACHE PATH "Documentation (DATAROOTDIR/doc/mensura)")
endif()
include(GNUInstallDirs)

set(MENSURA_APP_ID "io.github.mensura.Mensura")
# The date of this version's release, written into the metainfo with the project's version.
set(MENSURA_RELEASE_DATE "2026-11-22")

# mensura-cli installs itself (src/cli).
install(TARGETS mensura
    RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
    BUNDLE DESTINATION .)

set(resources ${PROJECT_SOURCE_DIR}/resources)
install(FILES ${resources}/mensura.desktop
    DESTINATION ${CMAKE_INSTALL_DATADIR}/applications
    RENAME ${MENSURA_APP_ID}.desktop)
configure_file(${resources}/${MENSURA_APP_ID}.metainfo.xml.in
    ${PROJECT_BINARY_DIR}/${MENSURA_APP_ID}.metainfo.xml @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/${MENSURA_APP_ID}.metainfo.xml
    DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)

install(FILES ${resources}/icons/mensura.svg
    DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
foreach(size 16 22 24 32 48 64 128 256)
    install(FILES ${resources}/icons/hicolor/${size}x${size}/mensura.png
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps)
endforeach()

# The help topics are compiled into the program; installed as well for reading in a browser.
file(GLOB help_topics ${resources}/help/*.html ${resources}/help/*.css ${resources}/help/*.png
    ${resources}/help/*.svg)
if(help_topics)
    install(FILES ${help_topics} DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/mensura/html)
endif()

# Debian package: mensura_<version>_<arch>.deb. The libraries come from dpkg-shlibdeps (package
# dpkg-dev); the SVG plugins load at run time and are named by hand.
set(CPACK_GENERATOR "DEB")
set(CPACK_PACKAGE_NAME "mensura")
set(CPACK_PACKAGE_VENDOR "The Mensura developers")
set(MENSURA_MAINTAINER "The Mensura developers" CACHE STRING "Maintainer field of the Debian package")
set(CPACK_PACKAGE_CONTACT "${MENSURA_MAINTAINER}")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_PACKAGE_DESCRIPTION
    "Mensura converts measured values between metric and imperial units: 43 physical quantities, "
    "results to a chosen number of significant figures never beyond what the conversion factors "
    "justify, marked conversions that print and save, custom quantities and units, and a "
    "command line, mensura-cli.")
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION "science")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "libqt6svg6")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "qt6-wayland")
include(CPack)
