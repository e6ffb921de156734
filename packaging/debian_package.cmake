# The Debian package, made by `cpack -G DEB` from the install rules: the
# programs in /usr/bin, the icons, menu entry, AppStream file and guide under
# /usr/share. dpkg-shlibdeps finds the Qt 6 libraries the programs link; the
# platform plugins that open their windows (xcb, and offscreen for the
# scenario tool) come with libqt6gui6.
#
# The licence and the addresses are those of the About box: the program is
# the Lathmark Calculator project's, all rights reserved, so the package
# belongs in the non-free area; no address and no site is published, so there
# is no Homepage, and the maintainer's address is one in the .invalid domain,
# which RFC 2606 keeps for names that reach nobody.
set(CPACK_GENERATOR DEB)
# The description quotes a length with its inch mark: pass values as written.
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_PACKAGE_NAME lathmark)
set(CPACK_PACKAGE_VENDOR "Lathmark Calculator project")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "Lathmark Calculator project <no-address-published@lathmark.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "calculator for feet, inches and fractions of an inch")
# The long description, below the summary line; CPack indents each line.
set(CPACK_PACKAGE_DESCRIPTION
    "Lathmark Calculator is a desktop calculator for people who measure in feet,
inches and fractions of an inch. It reads lengths such as 12'- 3 1/2\", gives
results to the nearest 1/16 or 1/32 of an inch, multiplies lengths into areas
and volumes, and keeps a paper tape, named memory cells, a converter strip and
four building formulas beside the calculator.")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION non-free/math)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
include(CPack)
