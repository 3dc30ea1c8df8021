#!/bin/sh
# Runs a Windows program: wine-run.sh PREFIX PROGRAM [ARGUMENT...]
# PREFIX is the folder of a Windows that is made on first use and may be thrown away at any time.
# Any number may run at once. WINE names another Wine than the installed one.
set -eu
export WINE="${WINE-wine}"
export WINEPREFIX="$1"
shift

# Wine links the user's folders to those in HOME; nothing may end up there.
export HOME="$WINEPREFIX"
# Neither traces nor dialogs, nor entries in desktop menus.
export WINEDEBUG=-all WINEDLLOVERRIDES='mscoree,mshtml=;winemenubuilder.exe=d'
unset DISPLAY WAYLAND_DISPLAY
# Under the C locale Wine would know file names in ASCII only.
export LC_ALL=C.UTF-8

if [ ! -e "$WINEPREFIX/made" ]; then
  mkdir -p "$WINEPREFIX"
  # Wine's services outlive the command that starts them; with -o they do not keep the lock. Its
  # driver "null" lets windows exist without a display; the services look once which driver it is.
  flock -o "$WINEPREFIX" sh -c '
    [ -e "$WINEPREFIX/made" ] && exit
    { "$WINE" wineboot --init &&
      "$WINE" reg add "HKCU\\Software\\Wine\\Drivers" /v Graphics /d null /f &&
      wineserver -k; } >"$WINEPREFIX/log" 2>&1 || { cat "$WINEPREFIX/log" >&2; exit 1; }
    touch "$WINEPREFIX/made"'
fi
exec "$WINE" "$@"
