#!/usr/bin/env bash
# Prints a tape through the program's own printing code and reads the
# printout back. Where the default printer is the PDF printer "LathmarkPDF"
# that scripts/print-queue.sh sets up, the tape goes through CUPS and its PDF
# is taken from the printer's folder; elsewhere the same code prints into a
# PDF file. Either way the PDF must hold the lines the program printed: the
# title centred over them, the empty line of row 0, every line ending in the
# same column, in the fixed-pitch font that "Courier" became.
#
# Usage: printout_test.sh PRINT_CHECK LOG. Says in LOG which way it printed.
set -uo pipefail
check="$1"
log="$2"
queue=LathmarkPDF
out=/var/spool/cups-pdf/lathmark
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
say() { echo "$*" | tee -a "$log"; }
fail() {
    say "FAIL: $*"
    exit 1
}
: >"$log"

for tool in pdftotext pdffonts; do
    command -v "$tool" >/dev/null || fail "$tool is missing (poppler-utils, installed by scripts/deps.sh)"
done

default=$(lpstat -d 2>/dev/null | sed -n 's/^system default destination: //p')
if [ "$default" = "$queue" ] && lpstat -p "$queue" 2>/dev/null | grep -q "enabled" &&
    [ -d "$out" ] && [ -w "$out" ]; then
    say "printing test: through the real print queue $queue (CUPS, PDF printer)"
    before=$(ls "$out")
    "$check" --queue >"$work/printed.txt" 2>"$work/check.err" || fail "print_check: $(cat "$work/check.err")"
    pdf=""
    for _ in $(seq 120); do
        for f in "$out"/*.pdf; do
            [ -e "$f" ] || continue
            grep -qxF "$(basename "$f")" <<<"$before" && continue
            pdf="$f"
        done
        # The job is done once the queue is empty again.
        if [ -n "$pdf" ] && [ -z "$(lpstat -o "$queue" 2>/dev/null)" ]; then break; fi
        sleep 0.5
    done
    [ -n "$pdf" ] || fail "no PDF came out of $queue within a minute"
    cp "$pdf" "$work/printout.pdf" && rm -f "$pdf"
else
    if [ -z "$default" ]; then
        why="this machine has no default printer"
    else
        why="the default printer is $default, not the test's PDF printer $queue"
    fi
    say "printing test: into a PDF file, as $why (scripts/print-queue.sh sets up the queue as root)"
    "$check" --pdf "$work/printout.pdf" >"$work/printed.txt" 2>"$work/check.err" ||
        fail "print_check: $(cat "$work/check.err")"
fi

# What the program printed: the font's family, then the lines.
family=$(sed -n 's/^font //p' "$work/printed.txt")
sed -n 's/^|\(.*\)|$/\1/p' "$work/printed.txt" | sed 's/ *$//' >"$work/expected.txt"
[ -s "$work/expected.txt" ] || fail "the program printed no lines"
case "$family" in
    *"not fixed pitch"*) fail "the printer font is not fixed pitch: $family" ;;
esac

# A Courier character is 0.6 of the 12-point size wide: read at that pitch
# the blanks come back as they were printed. The block starts where the
# page's margin is: that indent goes, as do the page's end and the blank
# lines after the last.
pdftotext -layout -fixed 7.2 "$work/printout.pdf" - | tr -d '\f' | sed 's/ *$//' >"$work/raw.txt"
indent=$(awk 'NF { match($0, /^ */); if (min == "" || RLENGTH < min) min = RLENGTH } END { print min + 0 }' \
    "$work/raw.txt")
awk -v n="$indent" '{ print substr($0, n + 1) }' "$work/raw.txt" |
    awk '{ lines[NR] = $0; if (NF) last = NR } END { for (i = 1; i <= last; ++i) print lines[i] }' \
        >"$work/actual.txt"
if ! diff -u "$work/expected.txt" "$work/actual.txt" >"$work/diff.txt"; then
    cat "$work/diff.txt" | tee -a "$log"
    fail "the printout does not read back as printed"
fi

# The same checks on their own: the title, the empty line under it, and
# every line of the block ending in one column.
title=$(sed -n 1p "$work/actual.txt")
[ "$(sed 's/^ *//' <<<"$title")" = "Calculator" ] || fail "the title is '$title'"
[ -z "$(sed -n 2p "$work/actual.txt")" ] || fail "the second line is not empty"
ends=$(tail -n +3 "$work/actual.txt" | awk 'NF { print length($0) }' | sort -u)
[ "$(wc -l <<<"$ends")" -eq 1 ] || fail "the lines end in several columns: $(echo $ends)"
width=$ends
# Centred: the title's blanks are half the difference, rounded down.
expected_title=$(((width - 10) / 2))
actual_title=$(awk 'NR == 1 { match($0, /^ */); print RLENGTH }' "$work/actual.txt")
[ "$actual_title" -eq "$expected_title" ] ||
    fail "the title stands $actual_title blanks in, not $expected_title"

# The font: the one that "Courier" became, embedded.
fonts=$(pdffonts "$work/printout.pdf" | tail -n +3)
compact=$(tr -d ' ' <<<"${family%% \[*}")
grep -qi -- "$compact" <<<"$fonts" || fail "the PDF's fonts are not $family: $fonts"
say "printout read back: $(wc -l <"$work/actual.txt") lines, $width columns, font $family"
exit 0
