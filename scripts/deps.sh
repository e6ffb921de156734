#!/usr/bin/env bash
# Installs what Lathmark needs to build and test on Debian 12, if missing.
# As root it runs apt-get; otherwise it prints the line to run. With --fuzz,
# also clang and libFuzzer for scripts/fuzz.sh; with --package, also lintian
# for scripts/package-test.sh; with --desktop, the window managers and the
# X tools of scripts/desktop-test.sh; with --accessibility, the accessibility
# bus and pyatspi of scripts/accessibility-test.sh.
set -euo pipefail

packages=(cmake ninja-build g++ qt6-base-dev libgl-dev libgtest-dev googletest
          libx11-dev xvfb xauth x11-utils x11-apps imagemagick fonts-dejavu-core
          librsvg2-bin desktop-file-utils appstream dpkg-dev file man-db
          poppler-utils fonts-urw-base35)
for option in "$@"; do
    case "$option" in
        --fuzz) packages+=(clang libclang-rt-14-dev) ;;
        --package) packages+=(lintian) ;;
        --desktop) packages+=(openbox mutter xwayland dbus xdotool wmctrl python3 python3-dbus
                              qt6-wayland) ;;
        --accessibility) packages+=(openbox dbus at-spi2-core python3-pyatspi) ;;
        *) echo "deps.sh: unknown option $option" >&2; exit 2 ;;
    esac
done
missing=()
for p in "${packages[@]}"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
[ ${#missing[@]} -eq 0 ] && exit 0

if [ "$(id -u)" -eq 0 ]; then
    export DEBIAN_FRONTEND=noninteractive
    apt-get update -qq
    apt-get install -y -qq --no-install-recommends "${missing[@]}"
else
    echo "Lathmark needs these packages. Run:" >&2
    echo "  sudo apt-get install -y ${missing[*]}" >&2
    exit 1
fi
