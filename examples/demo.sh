#!/bin/sh
# Works on one INI file: reads, writes, adds, deletes, merges, stores a value of several lines. Each
# time `diff` shows that only the lines concerned have changed.
#
#     examples/demo.sh [INI-FILE]
#
# Uses the `quorkit` on the PATH, and a copy of the file; without a file, the demo's own settings.
set -eu
command -v quorkit >/dev/null || { echo "quorkit is not on the PATH" >&2 && exit 1; }
here=$(cd "$(dirname "$0")" && pwd)
original=${1:-$here/settings.ini}
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
file=$scratch/$(basename "$original")
cp "$original" "$file"
chmod u+w "$file"

# One call of a member of QuorInifile on the file, shown as it would be typed.
ini() {
    member=$1
    shift
    printf '\n$ quorkit call QuorInifile.%s' "$member"
    for argument in "$@"; do printf " '%s'" "$argument"; done
    printf '\n'
    cp "$file" "$scratch/before"
    quorkit call "QuorInifile.$member" --set IniFileName="$file" "$@"
    diff "$scratch/before" "$file" || true
}
# The same without output.
ask() {
    member=$1
    shift
    quorkit call "QuorInifile.$member" --set IniFileName="$file" "$@"
}

echo "== Reading $original"
ini ReadSectionNames | head -n 12
section=$(ask ReadSectionNames --json | sed 's/^[^[]*\["//; s/".*//')
key=
for name in "$section" $(ask ReadSectionNames | grep -v ' ' | head -n 50); do
    key=$(ask ReadSectionKeys "$name" | head -n 1)
    case $key in '' | 'countKeysRead = '*) ;; *) section=$name && break ;; esac
done
ini ReadSectionKeys "$section" | head -n 12
ini ReadKeyValue "$section" "$key" '(none)'
value=$(ask ReadKeyValue "$section" "$key" '')

echo
echo "== Changing one key changes one line"
ini WriteKeyValue "$section" "$key" 'changed; "by" the demo'
ini ReadKeyValue "$section" "$key" ''
ini WriteKeyValue "$section" "$key" "$value"
ini WriteKeyValue "$section" DemoKey '  blanks around  '
ini ReadKeyValue "$section" DemoKey ''
ini DeleteKey "$section" DemoKey

echo
echo "== A section of the demo's own: merged, a value of several lines, removed again"
ini WriteSectionContent DemoSection '{"table":[["One","1"],["Two","2"]]}'
ini WriteSectionContent DemoSection '{"table":[["two","22"],["Three","3"]]}'
ini WriteMultiLineValue -e DemoSection Note 'first line\r\n\r\nlast line'
ini ReadMultiLineValue DemoSection Note
ini DeleteMultiLineKey DemoSection Note
ini DeleteSection DemoSection

echo
if cmp -s "$original" "$file"; then
    echo "The file is again what it was, byte for byte."
else
    echo "What is left of the walk:"
    diff "$original" "$file" || true
fi
