#!/bin/sh
# check.sh COMPILER FOLDER DLL LAUNCHER...: Free Pascal's importer makes a unit of the type library in
# the DLL, which compiles, and whose members a program calls. FOLDER keeps what is built.
set -eu

compiler=$1 folder=$2 dll=$3
shift 3
here=$(dirname "$(realpath "$0")")
source=/usr/share/fpcsrc/$("$compiler" -iV)
target=$([ "$("$compiler" -iTP)" = x86_64 ] && echo win64 || echo win32)
mkdir -p "$folder/units"

compile() {
  "$compiler" -n -Sg -T"$target" -FU"$folder/units" -Fu"$folder/units" "$@" >"$folder/log" ||
    { cat "$folder/log" && false; }
}
runtime() {
  rtl=$source/rtl
  compile -Fi"$rtl/inc" -Fi"$rtl/$("$compiler" -iTP)" -Fi"$rtl/win" -Fi"$rtl/$target" \
    -Fi"$rtl/objpas" -Fi"$rtl/objpas/sysutils" -Fi"$rtl/objpas/classes" -Fi"$rtl/win/wininc" \
    -Fu"$rtl/$target" -Fu"$rtl/win" -Fu"$rtl/inc" -Fu"$rtl/objpas" \
    -Fu"$rtl/$("$compiler" -iTP)" "$@"
}
with_packages() {
  for name in winunits-base/src fcl-base/src fcl-registry/src fcl-xml/src rtl-objpas/src/inc \
    rtl-objpas/src/win rtl-objpas/src/common; do
    set -- "$@" -Fu"$source/packages/$name" -Fi"$source/packages/$name"
  done
  compile "$@"
}

if [ ! -e "$folder/runtime" ]; then
  runtime -Us "$source/rtl/$target/system.pp"
  runtime "$source/rtl/$target/buildrtl.pp"
  with_packages -o"$folder/import.exe" "$here/import.pas"
  touch "$folder/runtime"
fi
"$@" "$folder/import.exe" "$dll" "$folder/quorkit_TLB.pas"
with_packages -Fu"$folder" -o"$folder/early.exe" "$here/early.pas"
"$@" "$folder/early.exe" | tr -d '\r' >"$folder/received"
# Identifier, kind of call, types of the arguments: constants arrive as VT_UI4, and an object's
# property gets its value even where it is declared by reference.
diff - "$folder/received" <<'TEXT'
6003000D 3: 0008 000B
60030015 3: 4008 4008 4008 4008
68030005 4: 0013
68030000 4: 000B
60030011 3: 0008 400C 0008 000B 0001 000A 0008
TEXT
