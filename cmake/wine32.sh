#!/bin/sh
# Runs a Windows program of 64 or of 32 bits: wine32.sh WINE [PREFIX PROGRAM [ARGUMENT...]]
# WINE is the folder of a Wine for both, made on first use: the installed one and Debian's packages
# for 32 bits, unpacked there, so that the system needs no second architecture. With them comes
# Free Pascal's compiler for 32 bits, usr/lib/i386-linux-gnu/fpc/3.2.2/ppc386. The rest is as for
# wine-run.sh, but a PREFIX that the installed Wine has made knows 64 bits only; without it nothing
# is run. Any number may run at once.
# Exits with 77 where 32 bits cannot be had here; what is missing has been printed.
set -eu
case $1 in /*) wine=$1 ;; *) wine=$PWD/$1 ;; esac
shift
libraries=$wine/usr/lib/i386-linux-gnu:$wine/lib/i386-linux-gnu

missing() {
  echo "no Wine for 32 bits: $*" >&2
  exit 77
}

# An apt of its own, which knows 32 bits only and has nothing installed.
foreign_apt() {
  apt-get -qq -o Dir="$wine/apt" -o Dir::State::status=/dev/null -o APT::Sandbox::User=root \
    -o APT::Architecture=i386 -o APT::Architectures=i386 -o APT::Update::Error-Mode=any "$@"
}

fetch() {
  mkdir -p apt/etc/apt/preferences.d apt/var/lib/apt/lists/partial apt/var/cache/apt/archives/partial
  keys=/usr/share/keyrings/debian-archive-keyring.gpg
  release=$(. /etc/os-release && echo "$VERSION_CODENAME")
  echo "deb [signed-by=$keys] http://deb.debian.org/debian $release main" >apt/etc/apt/sources.list
  # Threads end through GCC's library. Without FreeType every program with windows complains, and
  # with it but without Fontconfig it crashes.
  foreign_apt update && foreign_apt download "libwine=$1" "wine32=$1" libgcc-s1 \
    libfreetype6 libbrotli1 libpng16-16 zlib1g libfontconfig1 libexpat1 libuuid1 fp-compiler-3.2.2
}

make() {
  version=$(dpkg-query -W -f '${Version}' wine64) || missing "wine64 is not installed"
  [ -e /lib/ld-linux.so.2 ] || missing "libc6-i386 is not installed"
  rm -rf "${wine:?}"/*
  cd "$wine"
  fetch "$version" || missing "the packages for Wine $version could not be fetched"
  for package in *.deb; do dpkg-deb -x "$package" .; done
  rm -r apt ./*.deb usr/share usr/bin usr/lib/wine/wineserver*
  mkdir usr/share usr/lib/x86_64-linux-gnu
  ln -s /usr/share/wine usr/share/wine
  cp /usr/lib/wine/wine64 usr/lib/wine/
  cp /usr/lib/wine/wineserver64 usr/lib/wine/wineserver
  installed=/usr/lib/x86_64-linux-gnu/wine
  cp -r $installed usr/lib/x86_64-linux-gnu
  # user32.dll needs it; the package does not bring it, but makes it when it is installed.
  cp $installed/i386-windows/zlib1.dll usr/lib/i386-linux-gnu/wine/i386-windows/
  # Four fifths are for debuggers, and every prefix has a copy.
  x86_64-w64-mingw32-strip usr/lib/x86_64-linux-gnu/wine/x86_64-windows/*.???
  i686-w64-mingw32-strip usr/lib/i386-linux-gnu/wine/i386-windows/*.???
  LD_LIBRARY_PATH=$libraries usr/lib/wine/wine --version >/dev/null ||
    missing "this system does not run programs of 32 bits"
  touch made
}

if [ ! -e "$wine/made" ]; then
  mkdir -p "$wine"
  (
    flock 9
    [ -e "$wine/made" ] || make
  ) 9<"$wine"
fi
[ $# -gt 0 ] || exit 0
export WINE="$wine/usr/lib/wine/wine64" LD_LIBRARY_PATH="$libraries"
exec "$(dirname "$0")/wine-run.sh" "$@"
