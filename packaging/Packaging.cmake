# Installation on a desktop and the Debian package (cpack). Included from the top-level file.
#
#   <prefix>/libexec/selvora/selvora       the program
#   <prefix>/libexec/selvora/QSS -> ../../share/selvora/QSS
#                                          so that applicationDirPath + "/QSS/selvora.css" holds
#   <prefix>/bin/selvora -> ../libexec/selvora/selvora
#   <prefix>/share/applications, mime/packages, metainfo, icons/hicolor, man, doc/selvora

include(GNUInstallDirs)

set(SELVORA_PRIVATE_DIR ${CMAKE_INSTALL_LIBEXECDIR}/selvora)
set(SELVORA_DATA_DIR ${CMAKE_INSTALL_DATADIR}/selvora)
set(SELVORA_APP_ID example.corvane.selvora)
set(SELVORA_PACKAGING_DIR ${CMAKE_CURRENT_LIST_DIR})
set(SELVORA_PACKAGING_OUT ${CMAKE_BINARY_DIR}/packaging)
# Whatever the umask of the machine that builds the package.
set(CMAKE_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

install(TARGETS selvora RUNTIME DESTINATION ${SELVORA_PRIVATE_DIR})
# Stripping (cpack, or cmake --install --strip) leaves the compiler's notes; Debian drops them.
install(CODE "
    if(CMAKE_INSTALL_DO_STRIP)
        execute_process(COMMAND \"${CMAKE_OBJCOPY}\" --remove-section=.comment
                        \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${SELVORA_PRIVATE_DIR}/selvora\")
    endif()
")
install(FILES ${CMAKE_SOURCE_DIR}/resources/css/main.css
        DESTINATION ${SELVORA_DATA_DIR}/QSS RENAME selvora.css)

# Relative links, made at install time under DESTDIR (cpack stages the same way). Qt resolves
# /proc/self/exe, so the program started through bin/ still finds QSS beside its real place.
file(RELATIVE_PATH SELVORA_BIN_LINK /p/${CMAKE_INSTALL_BINDIR} /p/${SELVORA_PRIVATE_DIR}/selvora)
file(RELATIVE_PATH SELVORA_QSS_LINK /p/${SELVORA_PRIVATE_DIR} /p/${SELVORA_DATA_DIR}/QSS)
install(CODE "
    set(root \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}\")
    file(MAKE_DIRECTORY \"\${root}/${CMAKE_INSTALL_BINDIR}\")
    file(CREATE_LINK \"${SELVORA_BIN_LINK}\" \"\${root}/${CMAKE_INSTALL_BINDIR}/selvora\" SYMBOLIC)
    file(CREATE_LINK \"${SELVORA_QSS_LINK}\" \"\${root}/${SELVORA_PRIVATE_DIR}/QSS\" SYMBOLIC)
    message(STATUS \"Linked: \${root}/${CMAKE_INSTALL_BINDIR}/selvora, \${root}/${SELVORA_PRIVATE_DIR}/QSS\")
")

install(FILES ${SELVORA_PACKAGING_DIR}/${SELVORA_APP_ID}.desktop
        DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${SELVORA_PACKAGING_DIR}/${SELVORA_APP_ID}.metainfo.xml
        DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES ${SELVORA_PACKAGING_DIR}/selvora-mime.xml
        DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages RENAME selvora.xml)
# Drawn by tools/drawicons (the icons target).
install(DIRECTORY ${CMAKE_SOURCE_DIR}/resources/hicolor DESTINATION ${CMAKE_INSTALL_DATADIR}/icons)

# The manual page and the changelog, compressed without time stamps as Debian wants them.
configure_file(${SELVORA_PACKAGING_DIR}/selvora.1.in ${SELVORA_PACKAGING_OUT}/selvora.1 @ONLY)
configure_file(${SELVORA_PACKAGING_DIR}/changelog.in ${SELVORA_PACKAGING_OUT}/changelog @ONLY)
add_custom_command(
    OUTPUT ${SELVORA_PACKAGING_OUT}/selvora.1.gz ${SELVORA_PACKAGING_OUT}/changelog.gz
    COMMAND gzip -9nf -k ${SELVORA_PACKAGING_OUT}/selvora.1 ${SELVORA_PACKAGING_OUT}/changelog
    DEPENDS ${SELVORA_PACKAGING_OUT}/selvora.1 ${SELVORA_PACKAGING_OUT}/changelog
    COMMENT "Compressing the manual page and the changelog")
add_custom_target(selvora_packaging_docs ALL
    DEPENDS ${SELVORA_PACKAGING_OUT}/selvora.1.gz ${SELVORA_PACKAGING_OUT}/changelog.gz)
install(FILES ${SELVORA_PACKAGING_OUT}/selvora.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES ${SELVORA_PACKAGING_DIR}/copyright ${SELVORA_PACKAGING_OUT}/changelog.gz
        DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/selvora)

# The Debian package.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME selvora)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_VENDOR "Corvane Systems")
set(CPACK_PACKAGE_CONTACT "Corvane Systems <selvora@corvane.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "authoring tool for interactive multimedia learning objects")
set(CPACK_PACKAGE_DESCRIPTION
    "Selvora lets teachers and tutors compose interactive multimedia learning
objects without programming. A project is an ordered list of scenes on one
16:9 canvas; each scene holds a main video, pictures, text boxes, shapes and
sound in layers, and a timeline of events that show, hide and move media and
jump between scenes on a key, a click or by themselves.

The interface is in Brazilian Portuguese.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION education)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE "https://corvane.example/selvora")
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
# The libraries come from dpkg-shlibdeps; what is loaded at run time or started as a program
# is named here: the media plugins, Qt's Portuguese texts and zip for publishing.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS
    "libqt5multimedia5-plugins, gstreamer1.0-plugins-base, gstreamer1.0-plugins-good, gstreamer1.0-libav, qttranslations5-l10n, zip")
include(CPack)
