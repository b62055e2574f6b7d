#!/bin/bash
# A generated file deleted from the run directory is made again by the next build, byte for
# byte. The file is moved aside, kelvane_assets is built and the new file is compared with the
# one moved aside; whatever happens, the run directory is left holding the file.
# Usage: rebuild_makes_missing_file.sh <cmake> <build dir> <generated file>
set -eu
cmake=$1 build=$2 file=$3
saved=$(mktemp "${TMPDIR:-/tmp}/kelvane-saved-XXXXXX")

restore() {
  if [ ! -e "$file" ]; then mv "$saved" "$file"; fi
  rm -f "$saved"
}
trap restore EXIT

mv "$file" "$saved"
"$cmake" --build "$build" --target kelvane_assets
if [ ! -e "$file" ]; then
  echo "FAIL: building kelvane_assets did not make $file again" >&2
  exit 1
fi
if ! cmp "$saved" "$file"; then
  echo "FAIL: $file was made again with different bytes" >&2
  exit 1
fi
echo "PASS: $file made again, identical"
