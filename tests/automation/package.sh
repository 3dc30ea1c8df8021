#!/bin/sh
# The package as its users take it: package.sh ZIP FOLDER EMULATOR...
# FOLDER is made anew. The EMULATOR runs programs of both bitnesses, in a Windows at FOLDER/wine.
set -eu
zip=$1 folder=$(realpath -m "$2")
shift 2
here=$(dirname "$(realpath "$0")")
rm -rf "$folder"
mkdir -p "$folder/wine"
python3 -m zipfile -e "$zip" "$folder"
package=$(echo "$folder"/quorkit-*)
windows() { printf 'Z:%s' "$1" | tr / '\\'; }

# Nothing is needed but Windows.
for program in "$package"/x??/quorkit.dll "$package"/x??/quorkit.exe; do
  x86_64-w64-mingw32-objdump -p "$program" | sed -n 's/.*DLL Name: //p'
done | tr '[:upper:]' '[:lower:]' | sort -u >"$folder/imports"
printf '%s.dll\n' advapi32 comdlg32 gdi32 kernel32 mpr msvcrt ole32 oleaut32 shell32 user32 \
  windowscodecs | diff - "$folder/imports"

# client FOLDER EMULATOR...: the client in C that is there.
client() {
  program=$1/client.exe
  shift
  "$@" "$program" | tr -d '\r' >"$folder/said"
  diff - "$folder/said" <<'TEXT'
by identifier: 007
by name: 007
by reference: 1, 42, 3, 4
constant: Mo
error 76 in quorkit.GQuorFile: Path not found
TEXT
}

# Everything of the registry, without times.
registry() {
  WINEPREFIX="$folder/wine" wineserver -k
  WINEPREFIX="$folder/wine" wineserver -w
  sed 's/^\(\[.*\]\) .*/\1/; /^#time=/d' "$folder/wine/system.reg" "$folder/wine/user.reg"
}

"$@" reg.exe query HKCU >/dev/null
registry >"$folder/before"
for kind in x64 x86; do
  case $kind in
    x64) machine=x86_64 system=system32 toolchain=mingw ;;
    x86) machine=i686 system=syswow64 toolchain=mingw32 ;;
  esac
  from=$package/$kind
  at=$folder/$kind
  for way in none manifest linked; do
    mkdir "$at-$way"
    set --  
  done
done
