#!/bin/sh
# Scripts in engines that we did not write, each of which tells what is wrong and that it came to its end:
# scripts.sh SYSTEM DLL EMULATOR... SYSTEM is the folder of Windows with the programs of the DLL's bitness.
set -eu
system=C:\\windows\\$1 here=$(dirname "$(realpath "$0")")
windows() { printf 'Z:%s' "$1" | tr / '\\'; }
dll=$(windows "$2")
shift 2

trap '"$@" "$system\\regsvr32.exe" /s /u "$dll"' EXIT
"$@" "$system\\regsvr32.exe" /s "$dll"
for script in client.js control.vbs; do
  "$@" "$system\\cscript.exe" //nologo "$(windows "$here/$script")"
done | tr -d '\r' | diff /dev/fd/3 - 3<<'TEXT'
client.js: done
held
released
control.vbs: done
TEXT
