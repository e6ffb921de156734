#!/bin/sh
# Checks that the changelog and the AppStream file speak of the version the
# build makes, so that the package's version, its changelog and the release
# that software centres show are one.
# Usage: check_changelog.sh VERSION CHANGELOG METAINFO
set -eu
version="$1"
changelog="$2"
metainfo="$3"
fail() { echo "check_changelog: $*" >&2; exit 1; }

latest="$(dpkg-parsechangelog -l "$changelog" -S Version)" || fail "$changelog does not parse"
[ "$latest" = "$version" ] || fail "$changelog begins with $latest, the build makes $version"
source="$(dpkg-parsechangelog -l "$changelog" -S Source)"
[ "$source" = lathmark ] || fail "$changelog is the changelog of $source, not of lathmark"
release="$(sed -n 's/.*<release version="\([^"]*\)".*/\1/p' "$metainfo" | head -n 1)"
[ "$release" = "$version" ] || fail "$metainfo names the release $release first, the build makes $version"
echo "changelog and AppStream file at $version"
