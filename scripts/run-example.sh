#!/usr/bin/env bash
# Sets up, builds and runs the command-line tool on the bundled example cam:
# the cam definition data, its grid points written into a cam table of a
# simulated drive, and the table read back with its summary.
set -euo pipefail
here="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
build="$here/build"
"$here/scripts/setup.sh" "$build" >/dev/null
camtool="$build/camtool/camtool"
example="$here/examples/cyclic-cam.json"

echo "== camtool show $example"
"$camtool" show "$example"

# A fresh demo drive each run, kept in the build tree for a look afterwards.
drive="$build/example-drive.json"
rm -f "$drive"
echo
echo "== camtool write $example --drive $drive --table 5"
"$camtool" write "$example" --drive "$drive" --table 5 2>/dev/null

readback="$build/example-table5.json"
echo
echo "== camtool read --drive $drive --table 5 (full output in $readback)"
"$camtool" read --drive "$drive" --table 5 >"$readback"
grep -E '"(count|storedCrc|computedCrc)"' "$readback"
points=$(grep -c '^        \[$' "$readback" || true)
echo "    points read back: $points"
echo "    summary:"
sed -n 's/^ *"summary": "\(.*\)"$/\1/p' "$readback" \
    | sed -e 's#<p>#\n#g' -e 's#<[^>]*>##g' -e 's#\\t#    #g' | sed '/^ *$/d; s/^/      /'

echo
echo "== a second write of the same points changes nothing"
before=$(sha256sum "$drive" | cut -d' ' -f1)
"$camtool" write "$example" --drive "$drive" --table 5 >/dev/null 2>&1
after=$(sha256sum "$drive" | cut -d' ' -f1)
[ "$before" = "$after" ] && echo "    drive project unchanged" || echo "    drive project CHANGED"

echo
echo "== a read-only drive refuses the write (exit code 1, message of the drive binding)"
if "$camtool" write "$example" --drive "$drive" --table 5 --read-only 2>&1 >/dev/null | grep -v '^QStandardPaths'; then :; fi
