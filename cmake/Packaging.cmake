# What "cmake --install" puts on a system, and the Debian packages "cpack -G DEB" makes of it:
#   ombrel         the program, its desktop entry, icons and AppStream metainfo
#   ombrel-server  the reference server and its systemd unit, once the server is part of the build
# Included last, so that every target of the build already exists.
include(GNUInstallDirs)

set(OMBREL_APP_ID com.halcyra.ombrel)
set(DESKTOP_DIR ${PROJECT_SOURCE_DIR}/resources/desktop)

install(TARGETS ombrel RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT ombrel)
install(FILES ${DESKTOP_DIR}/${OMBREL_APP_ID}.desktop
        DESTINATION ${CMAKE_INSTALL_DATADIR}/applications COMPONENT ombrel)
configure_file(${DESKTOP_DIR}/${OMBREL_APP_ID}.metainfo.xml
               ${PROJECT_BINARY_DIR}/desktop/${OMBREL_APP_ID}.metainfo.xml @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/desktop/${OMBREL_APP_ID}.metainfo.xml
        DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo COMPONENT ombrel)

# The icon theme wants a PNG at each usual size beside the scalable source; they are rendered from the
# SVG at build time so that only the source is kept in the tree.
set(ICON_SVG ${PROJECT_SOURCE_DIR}/resources/icons/app_icon.svg)
set(ICON_THEME_DIR ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
install(FILES ${ICON_SVG} RENAME ${OMBREL_APP_ID}.svg
        DESTINATION ${ICON_THEME_DIR}/scalable/apps COMPONENT ombrel)
find_program(RSVG_CONVERT rsvg-convert)
if(RSVG_CONVERT)
    set(icon_pngs)
    foreach(size 16 22 24 32 48 64 128 256)
        set(png ${PROJECT_BINARY_DIR}/icons/${size}/${OMBREL_APP_ID}.png)
        add_custom_command(OUTPUT ${png}
            COMMAND ${RSVG_CONVERT} -w ${size} -h ${size} -o ${png} ${ICON_SVG}
            DEPENDS ${ICON_SVG} VERBATIM)
        list(APPEND icon_pngs ${png})
        install(FILES ${png} DESTINATION ${ICON_THEME_DIR}/${size}x${size}/apps COMPONENT ombrel)
    endforeach()
    add_custom_target(ombrel_icons ALL DEPENDS ${icon_pngs})
else()
    message(WARNING "rsvg-convert is missing (install librsvg2-bin): only the scalable icon is installed")
endif()

set(CPACK_COMPONENTS_ALL ombrel)
if(TARGET ombrel-server)
    install(TARGETS ombrel-server RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT server)
    # systemd looks in /lib/systemd/system whatever the prefix; a unit under /usr/local is never found.
    install(FILES ${PROJECT_SOURCE_DIR}/resources/systemd/ombrel-server.service
            DESTINATION /lib/systemd/system COMPONENT server)
    list(APPEND CPACK_COMPONENTS_ALL server)
endif()

set(CPACK_PACKAGE_NAME ombrel)
set(CPACK_PACKAGE_VENDOR Halcyra)
set(CPACK_PACKAGE_CONTACT "Halcyra <support@halcyra.com>")
set(CPACK_PACKAGE_HOMEPAGE_URL https://halcyra.com/ombrel)
# Each component's description starts with its own summary line; a package-wide one would go before it.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
# dpkg-shlibdeps reads the linked libraries off the binaries; what is loaded at run time is listed by hand.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_OMBREL_PACKAGE_NAME ombrel)
set(CPACK_COMPONENT_OMBREL_DESCRIPTION
    "Personal-finance register for a household\nKeep accounts in a keyboard-driven register with a running balance, reconcile\nthem, run reports, import CSV and QIF files and keep ZIP backups.")
set(CPACK_DEBIAN_OMBREL_PACKAGE_DEPENDS "libqt6sql6-sqlite")
set(CPACK_DEBIAN_OMBREL_PACKAGE_RECOMMENDS "qt6-translations-l10n, qt6-qpa-plugins")
set(CPACK_DEBIAN_SERVER_PACKAGE_NAME ombrel-server)
set(CPACK_DEBIAN_SERVER_PACKAGE_SECTION net)
set(CPACK_COMPONENT_SERVER_DESCRIPTION
    "Reference server for Halcyra Ombrel\nSign-in, account and sync services for the program, keeping everything in one\nSQLite file; started by systemd as ombrel-server.service.")
set(CPACK_DEBIAN_SERVER_PACKAGE_DEPENDS "libqt6sql6-sqlite")
include(CPack)
