#!/bin/sh
# Checks a manual page the way lintian does: man renders it without a word
# on standard error, at the width of a terminal and at lintian's, and
# lexgrog reads its NAME line, from which whatis and apropos take the page.
# Usage: check_manual_page.sh PAGE NAME
set -eu
page="$1"
name="$2"
fail() { echo "check_manual_page: $page: $*" >&2; exit 1; }

for width in 80 120; do
    messages="$(env -i PATH="$PATH" LC_ALL=C.UTF-8 MANROFFSEQ= MANWIDTH=$width \
        man --warnings -E UTF-8 -l -Tutf8 -Z "$page" 2>&1 >/dev/null)" ||
        fail "man cannot render it"
    [ -z "$messages" ] || fail "man warns at width $width: $messages"
done

whatis="$(env -i PATH="$PATH" LC_ALL=C.UTF-8 lexgrog "$page")" || fail "lexgrog cannot read its NAME line"
case "$whatis" in
    *": \"$name - "?*) echo "$whatis" ;;
    *) fail "the NAME line does not read \"$name - ...\": $whatis" ;;
esac
