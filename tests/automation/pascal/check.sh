#!/bin/sh
# check.sh COMPILER FOLDER DLL LAUNCHER...: Free Pascal's importer makes a unit of the type library in
# the server, which compiles, and a program that uses it calls the server, bound early and late.
# Another one says the contract table, in its own language and in VBScript. FOLDER keeps what is built.
set -eu

compiler=$1 folder=$2 dll=$3
shift 3
here=$(dirname "$(realpath "$0")")
case $compiler in
  *ppc386) system=syswow64 ;;
  *) system=system32 ;;
esac
windows() { printf 'Z:%s' "$1" | tr / '\\'; }

mkdir -p "$folder"
build() {
  program=$1
  set -- "-Fu$folder"
  for package in winunits-base/src fcl-base/src fcl-registry/src fcl-xml/src rtl-objpas/src/inc; do
    set -- "$@" "-Fu/usr/share/fpcsrc/3.2.2/packages/$package"
  done
  "$here/compile.sh" "$compiler" "$folder/units" "$here/$program.pas" "$folder/$program.exe" "$@" \
    >"$folder/log" || { cat "$folder/log" && false; }
}
[ -e "$folder/import.exe" ] || build import
"$@" "$folder/import.exe" "$(windows "$dll")" "$(windows "$folder/quorkit_TLB.pas")"
build client
build session
trap '"$@" "C:\\windows\\$system\\regsvr32.exe" /s /u "$(windows "$dll")"' EXIT
"$@" "C:\\windows\\$system\\regsvr32.exe" /s "$(windows "$dll")"
"$@" "$folder/client.exe" | tr -d '\r' >"$folder/said"
python3 "$here/../../contract/automation.py" "$folder/session.exe" --launcher "$*"
# What arrives is told as identifier, kind of call and types of the arguments: an object's property
# gets its value even where it is declared by reference.
diff - "$folder/said" <<'TEXT'
6003000D 3: 0008 000B
60030015 3: 4008 4008 4008 4008
68030005 4: 0013
68030000 4: 000B
60030011 3: 0008 400C 0008 000B 0001 000A 0008
early: 007
version 1.2.3.4: 0, 1 2 3 4
level: -2
late: 007, by name: 007
value: kept
error 800A004C from quorkit.GQuorFile: Path not found
TEXT
