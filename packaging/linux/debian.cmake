# The fields of the Debian package.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME haloric)
set(CPACK_PACKAGE_VENDOR "The Haloric authors")
set(CPACK_PACKAGE_CONTACT "The Haloric authors <haloric@kestrow.com>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS ${CMAKE_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS})
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE "${release}")
set(CPACK_DEBIAN_PACKAGE_SECTION x11)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS qt6-qpa-plugins) # Qt's X11 plugin; loaded, not linked
set(CPACK_DEBIAN_PACKAGE_SUGGESTS picom)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "makes the focused window unmistakable")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION "Haloric follows the window that has the keyboard focus and draws around it: a
border with rounded corners, a glow that falls off outside the window, and a
short pulse when the focus moves. It can also tint the title bar and dim
everything else, or the windows of chosen applications only.
.
It needs an X11 session with an EWMH window manager; glow, tint and dimming
need a compositor besides.")
include(CPack)
