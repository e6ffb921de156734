# The Debian packages, made by `cpack -G DEB` from the install rules, one for
# each install component:
# - lathmark (component `calculator`): the calculator in /usr/bin, its icons,
#   menu entry, AppStream file, guide and manual page under /usr/share;
# - lathmark-scenario (component `scenario`): the scenario tool, which links
#   the Qt Test library, with a manual page and its command reference.
# Both come from one source, lathmark: each has the source's copyright and
# changelog in its folder of /usr/share/doc. dpkg-shlibdeps finds the Qt 6
# libraries each program links; the platform plugins that open the windows
# (xcb, and offscreen for the scenario tool) come with libqt6gui6.
#
# The licence and the addresses are those of the About box: the program is
# the Lathmark Calculator project's, all rights reserved, so the packages
# belong in the non-free area; no address and no site is published, so there
# is no Homepage, and the maintainer's address is one in the .invalid domain,
# which RFC 2606 keeps for names that reach nobody.
set(CPACK_GENERATOR DEB)
# The description quotes a length with its inch mark: pass values as written.
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_PACKAGE_NAME lathmark)
set(CPACK_PACKAGE_VENDOR "Lathmark Calculator project")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "Lathmark Calculator project <no-address-published@lathmark.invalid>")
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL calculator scenario)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SOURCE lathmark)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)

# Each description is the synopsis line, then the long description; CPack
# indents each line.
set(CPACK_DEBIAN_CALCULATOR_PACKAGE_NAME lathmark)
set(CPACK_DEBIAN_CALCULATOR_PACKAGE_SECTION non-free/math)
set(CPACK_DEBIAN_CALCULATOR_DESCRIPTION
    "calculator for feet, inches and fractions of an inch
Lathmark Calculator is a desktop calculator for people who measure in feet,
inches and fractions of an inch. It reads lengths such as 12'- 3 1/2\", gives
results to the nearest 1/16 or 1/32 of an inch, multiplies lengths into areas
and volumes, and keeps a paper tape, named memory cells, a converter strip and
four building formulas beside the calculator.")

set(CPACK_DEBIAN_SCENARIO_PACKAGE_NAME lathmark-scenario)
set(CPACK_DEBIAN_SCENARIO_PACKAGE_SECTION non-free/devel)
set(CPACK_DEBIAN_SCENARIO_DESCRIPTION
    "scenario runner for testing Lathmark Calculator
lathmark-scenario runs the program of Lathmark Calculator, the calculator for
feet, inches and fractions of an inch, through a scenario file: one command a
line, such as a key, a click, a menu item or a drag, or a question about the
readout, the tape, the memory cells or the windows. It prints what the
commands report, for comparison with the output expected. With --gui the
program runs behind its real Qt windows.
.
It is a tool for testing the calculator; the calculator itself is in the
package lathmark.")
include(CPack)
