#!/bin/sh
# Runs a Windows program: wine-run.sh PREFIX PROGRAM [ARGUMENT...]
# PREFIX is the folder of a Windows that is made on first use and may be thrown away at any time.
# Any number may run at once.
set -eu
export WINEPREFIX="$1"
shift

# Wine links the user's folders to those in HOME; nothing may end up there.
export HOME="$WINEPREFIX"
# Neither traces nor dialogs, nor entries in desktop menus.
export WINEDEBUG=-all WINEDLLOVERRIDES='mscoree,mshtml=;winemenubuilder.exe=d'
unset DISPLAY WAYLAND_DISPLAY
# Under the C locale Wine would know file names in ASCII only.
export LC_ALL=C.UTF-8

if [ ! -e "$WINEPREFIX/ready" ]; then
  mkdir -p "$WINEPREFIX"
  # Wine's services outlive the command that starts them; with -o they do not keep the lock.
  flock -o "$WINEPREFIX" sh -c '
    [ -e "$WINEPREFIX/ready" ] && exit
    wineboot --init >"$WINEPREFIX/log" 2>&1 || { cat "$WINEPREFIX/log" >&2; exit 1; }
    touch "$WINEPREFIX/ready"'
fi
exec wine "$@"
