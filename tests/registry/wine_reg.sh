#!/bin/bash
# Windows' own tool and ours write the same file for a key, and each reads the other's file:
# wine_reg.sh QUORKIT EMULATOR...
set -eu

quorkit=$1
emulator=("${@:2}")
key='HKCU\Software\Quorkit Witness'
witness=$(realpath "$(dirname "$0")/witness.reg")
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder"
cp "$witness" .

reg() { "${emulator[@]}" reg "$@"; }
registry() { "${emulator[@]}" "$quorkit" registry "$@"; }

# Both write the key as it was.
expect_key() {
  reg export "$key" theirs.reg /y
  cmp witness.reg theirs.reg
  registry export "$key" ours.reg
  cmp witness.reg ours.reg
}

reg delete "$key" /f || true # left behind by a run that failed
reg import witness.reg
expect_key
reg delete "$key" /f
registry import ours.reg
expect_key
reg delete "$key" /f
