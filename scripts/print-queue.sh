#!/usr/bin/env bash
# Sets up a real print queue for the printing test: CUPS with a PDF printer,
# "LathmarkPDF", made the default printer, that writes what it prints into
# /var/spool/cups-pdf/lathmark. Only as root, and only where no other printer
# is the default already. It always ends well: where no queue can be had,
# it says why, and the printing test prints into a PDF file instead.
set -uo pipefail

queue=LathmarkPDF
out=/var/spool/cups-pdf/lathmark
say() { echo "print queue: $*"; }
without() {
    say "none: $*; the printing test prints into a PDF file instead"
    exit 0
}

[ "$(id -u)" -eq 0 ] || without "setting one up needs root"

packages=(cups printer-driver-cups-pdf poppler-utils)
missing=()
for p in "${packages[@]}"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
    export DEBIAN_FRONTEND=noninteractive
    if ! { apt-get update -qq && apt-get install -y -qq --no-install-recommends "${missing[@]}"; } \
        >/tmp/lathmark-print-queue-apt.log 2>&1; then
        without "could not install ${missing[*]} (see /tmp/lathmark-print-queue-apt.log)"
    fi
fi
ppd=/usr/share/ppd/cups-pdf/CUPS-PDF_opt.ppd
[ -r "$ppd" ] || without "the PDF printer's description $ppd is missing"

# This queue's PDFs go to a folder of its own, whoever prints: the PDF
# printer reads the settings named after its device, cups-pdf:/lathmark.
mkdir -p "$out" && chmod 1777 "$out"
cat >/etc/cups/cups-pdf-lathmark.conf <<CONF
Out $out
AnonDirName $out
UserUMask 0000
CONF

# A machine without a service manager has no CUPS running: start it.
if ! lpstat -r 2>/dev/null | grep -q "is running"; then
    /usr/sbin/cupsd </dev/null >/dev/null 2>&1 || without "cupsd would not start"
    for _ in $(seq 50); do
        lpstat -r 2>/dev/null | grep -q "is running" && break
        sleep 0.2
    done
    lpstat -r 2>/dev/null | grep -q "is running" || without "cupsd started but does not answer"
fi

if ! lpstat -p "$queue" >/dev/null 2>&1; then
    lpadmin -p "$queue" -v cups-pdf:/lathmark -P "$ppd" -E 2>/dev/null ||
        without "lpadmin could not add $queue"
fi
lpadmin -p "$queue" -v cups-pdf:/lathmark 2>/dev/null
# The PDF printer takes PostScript; poppler's cairo renderer keeps the
# printed font's text in it, where the others leave only pictures of letters.
lpadmin -p "$queue" -o pdftops-renderer-default=pdftocairo 2>/dev/null
cupsenable "$queue" 2>/dev/null
cupsaccept "$queue" 2>/dev/null

default=$(lpstat -d 2>/dev/null | sed -n 's/^system default destination: //p')
if [ -n "$default" ] && [ "$default" != "$queue" ]; then
    without "this machine's default printer is $default, which is left alone"
fi
lpadmin -d "$queue" || without "lpadmin could not make $queue the default"
say "$queue (CUPS, PDF) is the default printer: the printing test prints through it"
