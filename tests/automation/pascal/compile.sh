#!/bin/sh
# Compiles a Pascal program for Windows: compile.sh COMPILER UNITS SOURCE PROGRAM [OPTION...]
# COMPILER is Free Pascal's for the machine, ppcx64 or ppc386, which makes programs for Windows too,
# but has no units for it. They are made of its sources once, in the folder UNITS; those of SOURCE
# go to PROGRAM.units. Any number may run at once.
set -eu
compiler=$1
units=$2
source=$3
program=$4
shift 4
case $compiler in
  *ppc386) machine=i386 system=win32 ;;
  *) machine=x86_64 system=win64 ;;
esac
library=/usr/share/fpcsrc/3.2.2
rtl=$library/rtl
packages=$library/packages

# pascal OPTION... SOURCE; without the settings of this machine, which are for its own programs.
pascal() {
  "$compiler" -n -T$system -O2 "$@"
}

make_units() {
  set -- -Sg "-FU$units" "-Fu$units" "-Fi$packages/rtl-objpas/src/inc" "-Fi$packages/fcl-registry/src"
  for folder in "$system" win win/wininc objpas objpas/sysutils objpas/classes inc "$machine"; do
    set -- "$@" "-Fi$rtl/$folder" "-Fu$rtl/$folder"
  done
  pascal "$@" -Us "$rtl/$system/system.pp" &&
    pascal "$@" "$rtl/$system/buildrtl.pp" || return
  # What clients of automation servers need, and what that needs.
  for folder in rtl-objpas/src/win rtl-objpas/src/inc fcl-base/src fcl-registry/src; do
    set -- "$@" "-Fu$packages/$folder"
  done
  pascal "$@" "$packages/winunits-base/src/comobj.pp"
}

mkdir -p "$units"
(
  flock 9
  [ -e "$units/made" ] && exit
  # The sources give hundreds of warnings.
  make_units >"$units/log" 2>&1 || { cat "$units/log" >&2; exit 1; }
  touch "$units/made"
) 9<"$units"
mkdir -p "$program.units"
pascal -v0e "-Fu$units" "-FU$program.units" "-o$program" "$@" "$source"
