#!/bin/sh
# Fails when libquorkit.so no longer has the functions and records that stand frozen in c.abi:
# abi.sh LIBRARY [--accept]
set -eu
here=$(dirname "$(realpath "$0")")
header=$here/../../hosts/c/quorkit.h
if [ "${2-}" = --accept ]; then
  abidw --exported-interfaces-only --no-corpus-path --no-comp-dir-path --no-show-locs "$1" |
    grep -v "<dependency" >"$here/c.abi"
  exit
fi
# A function is exported when the header declares it.
sed -n 's/^QUORKIT_API .*[ *]\(quorkit_[a-z0-9_]*\)(.*/\1/p' "$header" | sort >"$1.declared"
nm -D --defined-only "$1" | sed 's/.* //' | sort | diff "$1.declared" -
abidiff --exported-interfaces-only "$here/c.abi" "$1"
gcc -std=c89 -pedantic -Wall -Wextra -Werror -fsyntax-only -x c "$header"
echo "the interface is the frozen one"
