#!/bin/sh
# Installs a build, moves the installed tree, and builds and runs clients of it, with CMake and with
# pkg-config, and one in C: check.sh BUILD COMPILER
set -eux
build=$1
compiler=$2
client=$(dirname "$0")/client
work=$build/tests/install
tree=$work/moved

rm -rf "$work"
cmake --install "$build" --prefix "$work/installed"
mv "$work/installed" "$tree"

cmake -G Ninja -S "$client" -B "$work/client" -D CMAKE_PREFIX_PATH="$tree" \
  -D CMAKE_CXX_COMPILER="$compiler"
cmake --build "$work/client"
"$work/client/client"

pc=$(find "$tree" -name quorkit++.pc)
export PKG_CONFIG_PATH="${pc%/*}"
# shellcheck disable=SC2046 # flags are words
"$compiler" -std=c++20 "$client/main.cpp" $(pkg-config --cflags --libs quorkit++) -o "$work/client-pc"
LD_LIBRARY_PATH=$(pkg-config --variable=libdir quorkit++) "$work/client-pc"

# The program in C that stands in the README.
if [ -f "${pc%/*}/quorkit.pc" ]; then
  sed '1,/^```c$/d; /^```$/,$d' "$client/../../../README.md" >"$work/app.c"
  # shellcheck disable=SC2046 # flags are words
  gcc -std=c99 -pedantic -Wall -Wextra -Werror "$work/app.c" $(pkg-config --cflags --libs quorkit) \
    -o "$work/app"
  (cd "$work" && test "$(LD_LIBRARY_PATH=$(pkg-config --variable=libdir quorkit) ./app)" = post)
fi

helper=$(find "$tree" -path '*/quorkit/quorkit-clipboard')
"$helper" 2>&1 | grep usage
# The moved program finds it.
if command -v Xvfb >/dev/null; then
  exec 3>"$work/display"
  Xvfb -displayfd 3 -noreset -nolisten tcp &
  server=$!
  trap 'kill "$server"' EXIT
  while [ ! -s "$work/display" ]; do
    kill -0 "$server"
    sleep 0.1
  done
  DISPLAY=:$(cat "$work/display")
  export DISPLAY
  "$tree/bin/quorkit" call GQuorClipboard.SetTextToClipboard moved
  test "$("$tree/bin/quorkit" call GQuorClipboard.GetTextFromClipboard)" = moved
  readlink /proc/[0-9]*/exe | grep -Fx "$(readlink -f "$helper")"
fi

"$tree/bin/quorkit" list >"$work/classes"
grep -q GQuorStrings "$work/classes"
