#!/usr/bin/env bash
# Makes the Debian packages with CPack, lathmark (the calculator) and
# lathmark-scenario (the scenario tool), and checks them with lintian, which
# must report no error and no warning, nor any of the hardening tags of its
# info level. Checks that the calculator's package does not bring the Qt
# Test library along, installs both with apt-get, checks what they installed
# (the desktop entry and AppStream file through their validators, the icons,
# the guide, the manual pages, the copyright and changelog), runs the
# installed scenario tool on one scenario, headless and in real windows,
# starts the installed calculator on a private X display until its window
# maps, then purges both packages and checks that none of their files is
# left. Needs root, for apt-get.
# Usage: scripts/package-test.sh [BUILD_DIR]   (default: build/, as
# scripts/test.sh leaves it; a new folder is configured for Release)
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
build="$(realpath -m "${1:-$root/build}")"
app_id=io.github.lathmark.Calculator
scenario=equal_again_adds_total
packages=(lathmark lathmark-scenario)
say() { echo "package-test: $*"; }
fail() { echo "package-test: FAILED: $*" >&2; exit 1; }

[ "$(id -u)" -eq 0 ] || fail "installing the packages needs root"
"$root/scripts/deps.sh" --package
for package in "${packages[@]}"; do
    if dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q "install ok installed"; then
        fail "a $package package is installed already; remove it first"
    fi
done

if [ ! -f "$build/build.ninja" ]; then
    cmake -S "$root" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release \
        -DLATHMARK_BUILD_TESTS=OFF >/dev/null
fi
cmake --build "$build" --target lathmark lathmark-scenario lathmark_icon_pngs \
    lathmark_compressed_docs >/dev/null
rm -rf "$build/package"
cpack --config "$build/CPackConfig.cmake" -B "$build/package" >/dev/null
deb="$(ls "$build"/package/lathmark_*.deb)"
scenario_deb="$(ls "$build"/package/lathmark-scenario_*.deb)"
for file in "$deb" "$scenario_deb"; do
    say "built $(basename "$file"), depends: $(dpkg-deb -f "$file" Depends)"
done

# Each package holds its own program, with its manual page, copyright and
# changelog; the calculator's package holds no test tool and does not ask
# for Qt Test.
for package in "${packages[@]}"; do
    file="$deb"
    [ "$package" = lathmark ] || file="$scenario_deb"
    contents="$(dpkg-deb -c "$file" | awk '{ print $NF }')"
    for path in "./usr/bin/$package" "./usr/share/man/man1/$package.1.gz" \
        "./usr/share/doc/$package/copyright" "./usr/share/doc/$package/changelog.gz"; do
        grep -qx -- "$path" <<<"$contents" || fail "$package holds no $path"
    done
    other="lathmark-scenario"
    [ "$package" = lathmark ] || other="lathmark"
    if grep -qx -- "./usr/bin/$other" <<<"$contents"; then
        fail "$package holds $other"
    fi
done
if grep -q libqt6test <<<"$(dpkg-deb -f "$deb" Depends)"; then
    fail "lathmark depends on the Qt Test library"
fi
grep -q libqt6test <<<"$(dpkg-deb -f "$scenario_deb" Depends)" ||
    fail "lathmark-scenario does not depend on the Qt Test library it links"

# lintian at its default level and at the info level: nothing at the default
# level, and none of the hardening tags. It runs as nobody, as it prefers,
# on copies that nobody may read.
lint="$(mktemp -d)"
trap 'rm -rf "$lint"' EXIT
chmod 755 "$lint"
install -m 644 "$deb" "$scenario_deb" "$lint/"
lintian_out="$(cd "$lint" && runuser -u nobody -- lintian --no-user-dirs --display-info \
    --fail-on error,warning "$lint"/*.deb 2>&1)" ||
    { echo "$lintian_out" >&2; fail "lintian reports errors or warnings"; }
rm -rf "$lint"
[ -z "$lintian_out" ] || echo "$lintian_out"
hardening='hardening-no-|binary-has-unneeded-section|unstripped-binary-or-object'
if grep -E "$hardening" <<<"$lintian_out" >&2; then
    fail "lintian finds the programs not hardened or not stripped"
fi
say "lintian: no error, no warning, no hardening tag"

source "$root/scripts/xvfb-session.sh"
installed=""
finish() {
    # A failure half-way still takes the packages away again.
    if [ -n "$installed" ]; then
        DEBIAN_FRONTEND=noninteractive timeout 300 apt-get purge -y -qq "${packages[@]}" \
            >/dev/null 2>&1 || true
    fi
    cleanup
}
trap finish EXIT

export DEBIAN_FRONTEND=noninteractive
timeout 600 apt-get install -y -qq --no-install-recommends "$deb" "$scenario_deb" \
    >"$work/install.log" 2>&1 || { cat "$work/install.log" >&2; fail "apt-get install"; }
installed=1
for package in "${packages[@]}"; do
    dpkg -L "$package" >"$work/files.$package"
done
cat "$work"/files.* >"$work/files"
say "installed $(wc -l <"$work/files.lathmark") paths of lathmark," \
    "$(wc -l <"$work/files.lathmark-scenario") of lathmark-scenario"
if objdump -p /usr/bin/lathmark | grep -q 'NEEDED.*libQt6Test'; then
    fail "the installed calculator links the Qt Test library"
fi

# What the packages put in place.
for program in /usr/bin/lathmark /usr/bin/lathmark-scenario; do
    [ -x "$program" ] || fail "$program is missing"
done
desktop-file-validate "/usr/share/applications/$app_id.desktop" || fail "desktop entry"
appstreamcli validate --pedantic --no-net "/usr/share/metainfo/$app_id.metainfo.xml" \
    >"$work/appstream.log" 2>&1 || { cat "$work/appstream.log" >&2; fail "AppStream file"; }
for size in 16 24 32 48 64 128 256; do
    [ -f "/usr/share/icons/hicolor/${size}x${size}/apps/$app_id.png" ] || fail "icon ${size}"
done
[ -f "/usr/share/icons/hicolor/scalable/apps/$app_id.svg" ] || fail "scalable icon"
if [ -f "$root/guide/lathmark.html" ]; then
    [ -f /usr/share/lathmark/guide/lathmark.html ] || fail "the guide is not in share/lathmark/guide"
fi
for package in "${packages[@]}"; do
    for doc in copyright changelog.gz; do
        [ -f "/usr/share/doc/$package/$doc" ] || fail "/usr/share/doc/$package/$doc is missing"
    done
    # The page that `man` finds for the program, and what whatis reads in it.
    page="$(man -w "$package")" || fail "man finds no page for $package"
    [ "$page" = "/usr/share/man/man1/$package.1.gz" ] || fail "man finds $page for $package"
    say "$(lexgrog "$page")"
done

# The installed scenario tool, headless and behind real (offscreen) windows.
# Whatever the programs write goes to a home of their own.
mkdir -p "$work/home"
for mode in "" --gui; do
    (cd "$work" && HOME="$work/home" XDG_CONFIG_HOME="$work/home/.config" \
        XDG_DATA_HOME="$work/home/.local/share" QT_QPA_PLATFORM=offscreen \
        timeout 60 /usr/bin/lathmark-scenario $mode "$root/tests/scenarios/$scenario.scn") \
        >"$work/scenario.out" 2>"$work/scenario.err" ||
        { cat "$work/scenario.err" >&2; fail "lathmark-scenario $mode"; }
    diff -u "$root/tests/scenarios/$scenario.out" "$work/scenario.out" ||
        fail "lathmark-scenario $mode printed other than $scenario.out"
done
say "the installed scenario tool runs $scenario.scn as expected, headless and with --gui"

# The installed calculator on the X display, until its window maps.
HOME="$work/home" XDG_CONFIG_HOME="$work/home/.config" XDG_DATA_HOME="$work/home/.local/share" \
    QT_QPA_PLATFORM=xcb /usr/bin/lathmark >"$work/lathmark.log" 2>&1 &
lathmark_pid=$!
extra_pids+=("$lathmark_pid")
mapped=""
for _ in $(seq 200); do
    if xwininfo -name "Lathmark Calculator" 2>/dev/null | grep -q 'Map State: IsViewable'; then
        mapped=1
        break
    fi
    kill -0 "$lathmark_pid" 2>/dev/null || break
    sleep 0.1
done
[ -n "$mapped" ] || { cat "$work/lathmark.log" >&2; fail "the calculator's window did not map within 20 s"; }
kill "$lathmark_pid"
wait "$lathmark_pid" 2>/dev/null || true
say "the installed calculator maps its window"

# Away again, and nothing of them left.
timeout 300 apt-get purge -y -qq "${packages[@]}" >"$work/purge.log" 2>&1 ||
    { cat "$work/purge.log" >&2; fail "apt-get purge"; }
installed=""
left=0
while IFS= read -r path; do
    [ "$path" = "/." ] && continue
    # Folders shared with other packages stay; the packages' own files go.
    if [ -e "$path" ] && [ ! -d "$path" ] || [ -L "$path" ]; then
        echo "left behind: $path" >&2
        left=1
    fi
done <"$work/files"
for dir in /usr/share/lathmark /usr/share/doc/lathmark /usr/share/doc/lathmark-scenario; do
    [ ! -e "$dir" ] || { echo "left behind: $dir" >&2; left=1; }
done
[ "$left" -eq 0 ] || fail "files are left after the purge"
for package in "${packages[@]}"; do
    status="$(dpkg-query -W -f='${Status}' "$package" 2>/dev/null || true)"
    [ -z "$status" ] || [ "$status" = "unknown ok not-installed" ] ||
        fail "dpkg still has $package: $status"
done
say "purged; none of their $(grep -c . "$work/files") paths is left but shared folders"
