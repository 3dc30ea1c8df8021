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

# What programs keep in the registry, without times.
registry() {
  WINEPREFIX="$folder/wine" wineserver -k
  WINEPREFIX="$folder/wine" wineserver -w
  sed -n 's/^\(\[.*\]\) .*/\1/; /^#time=/d; /^\[Software/,/^$/p' \
    "$folder/wine/system.reg" "$folder/wine/user.reg"
}

# compile FOLDER MACHINE OPTION...: examples/client.c from the package alone.
compile() {
  mkdir -p "$1"
  program=$1/client.exe machine=$2
  shift 2
  "$machine-w64-mingw32-gcc-posix" -std=c99 -pedantic -Wall -Wextra -Werror "-I$package/include" \
    "$package/examples/client.c" "$@" -o "$program" -lole32 -loleaut32 -luuid
}

# client FOLDER EMULATOR...: it finds the classes.
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

# check KIND MACHINE SYSTEM TOOLCHAIN EMULATOR...: the files of one bitness.
check() {
  from=$package/$1 at=$folder/$1 machine=$2 system=$3 toolchain=$here/../../cmake/$4.cmake
  shift 4
  programs=C:\\windows\\$system dll=$(windows "$from/quorkit.dll")

  # Clients without registration.
  compile "$at" "$machine"
  "$@" "$at/client.exe" | grep -q 'no object: 800401F3'
  compile "$at/linked" "$machine" -DLINKED "$from/quorkit.lib"
  cp "$from/quorkit.dll" "$at/linked"
  client "$at/linked" "$@"
  sed '1,/^```c$/d; /^```$/,$d' "$package/README.md" >"$at/app.c"
  "$machine-w64-mingw32-gcc-posix" -std=c99 -pedantic -Wall -Wextra -Werror "-I$package/include" \
    "$at/app.c" "$from/quorkit.lib" -o "$at/linked/app.exe"
  test "$(cd "$at" && "$@" "$at/linked/app.exe" | tr -d '\r')" = post
  mkdir "$at/carried"
  cp "$at/client.exe" "$package/examples/client.exe.manifest" "$from/quorkit.dll" \
    "$from/quorkit.automation.manifest" "$at/carried"
  client "$at/carried" "$@"
  cmake -G Ninja -S "$here/../install/client" -B "$at/c++" --toolchain "$toolchain" \
    -D "quorkit_DIR=$from/lib/cmake/quorkit" >"$at/log"
  cmake --build "$at/c++" >>"$at/log"
  "$@" "$at/c++/client.exe"

  # Registered for the user, by one of the two means. Wine does not show the user's classes to
  # programs, so the test copies them to the machine's; to the doctor it shows them in both bitnesses.
  case $system in
    system32) "$@" "$programs\\regsvr32.exe" /s /n /i:user "$dll" ;;
    *) "$@" "$from/quorkit.exe" register >>"$at/log" ;;
  esac
  "$@" "$programs\\reg.exe" export 'HKCU\Software\Classes' "$(windows "$at/user.reg")" >>"$at/log"
  iconv -f UTF-16 -t ASCII "$at/user.reg" |
    sed '/^@=""/d; s/HKEY_CURRENT_USER/HKEY_LOCAL_MACHINE/' >"$at/machine.reg"
  "$@" "$programs\\reg.exe" import "$(windows "$at/machine.reg")" >>"$at/log" 2>&1
  client "$at" "$@"
  MACRO="$package/examples/macro.vbs" "$here/macro.sh" "$system" "" "$at/macro" "$@"
  "$@" "$from/quorkit.exe" doctor >"$at/doctor" 2>>"$at/log" || true
  grep -q '^ok  *creating and calling an object, .* bits: works by name' "$at/doctor"
  grep -qF "type library: $dll" "$at/doctor"
  "$@" "$from/quorkit.exe" register --remove --machine >>"$at/log"
  case $system in
    system32) "$@" "$programs\\regsvr32.exe" /s /u /n /i:user "$dll" ;;
    *) "$@" "$from/quorkit.exe" register --remove >>"$at/log" ;;
  esac
}

# What every user has, and what the script engine adds when it is first used.
"$@" reg.exe add 'HKCU\Software\Classes' >"$folder/log"
touch "$folder/empty.vbs"
for system in system32 syswow64; do
  "$@" "C:\\windows\\$system\\cscript.exe" "$(windows "$folder/empty.vbs")" >>"$folder/log"
done
registry >"$folder/before"
check x64 x86_64 system32 mingw "$@"
check x86 i686 syswow64 mingw32 "$@"
registry | diff "$folder/before" -
echo "the package works"
