#!/bin/sh
# The example macro in a script engine that we did not write: macro.sh SYSTEM DLL FOLDER EMULATOR...
# SYSTEM is the folder of Windows with the programs of the DLL's bitness.
set -eu
system=$1 dll=$2 folder=$3
shift 3
macro=$(dirname "$0")/../../examples/macro.vbs
windows() { printf 'Z:%s' "$1" | tr / '\\'; }

rm -rf "$folder"
mkdir -p "$folder"
printf '; kept\r\n[Month]\r\nOffice=Bern\r\n' >"$folder/month.ini"
printf '[Invoice]\r\nAmount=1200.50\r\n' >"$folder/invoice1.ini"
printf '[Invoice]\r\nAmount=99\r\n' >"$folder/invoice2.ini"
printf '[Invoice]\r\n' >"$folder/invoice3.ini"

"$@" "C:\\windows\\$system\\regsvr32.exe" /s "$(windows "$dll")"
"$@" "C:\\windows\\$system\\cscript.exe" //nologo "$(windows "$(realpath "$macro")")" \
  "$(windows "$folder")" | tr -d '\r' >"$folder/said"
"$@" "C:\\windows\\$system\\regsvr32.exe" /s /u "$(windows "$dll")"

diff - "$folder/said" <<'TEXT'
run 1, 2 values
Month 11/2026, next day Tu, Easter in 118 days
invoice1.................1200.50
invoice2...................99.00
3 invoices, CHF 1299.50
Acme AG
Erika Muster
Hauptstrasse 1
6300 Zug
0041 44 123 45 67
log: 1 failure
TEXT
grep -q '^; kept' "$folder/month.ini"
grep -q '^Error .*invoice3' "$folder/month.log"
if "$@" "C:\\windows\\$system\\reg.exe" query 'HKCR\quorkit.GQuorStrings' >/dev/null; then
  echo "the classes are still registered" >&2
  exit 1
fi
