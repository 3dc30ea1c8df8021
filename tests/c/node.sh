#!/bin/sh
# The example for Node: node.sh LIBRARY FOLDER. Ends with 77 where the package that calls C cannot be had.
set -eu
library=$1 folder=$2
rm -rf "$folder"
mkdir -p "$folder"
cp "$(dirname "$0")"/../../examples/node/* "$folder"
cd "$folder"
npm install --silent --no-audit --no-fund --ignore-scripts || exit 77
node settings.mjs "$library" "$folder" | diff - /dev/fd/3 3<<'TEXT'
post.example
007
Type mismatch
TEXT
grep -q '^Server=post.example' app.ini
