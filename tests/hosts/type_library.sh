#!/bin/sh
# type_library.sh DESCRIBE WIDL: the interface definition compiles into a type library, silently.
set -eu

folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
"$1" --idl >"$folder/quorkit.idl"
"$2" -t -o "$folder/quorkit.tlb" "$folder/quorkit.idl" >"$folder/messages" 2>&1 || true
cat "$folder/messages"
[ ! -s "$folder/messages" ]
[ -s "$folder/quorkit.tlb" ]
