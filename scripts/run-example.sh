#!/usr/bin/env bash
# Sets up, builds and runs the command-line tool on the bundled example cam.
set -euo pipefail
here="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
build="$here/build"
"$here/scripts/setup.sh" "$build" >/dev/null
example="$here/examples/cyclic-cam.json"
echo "== camtool show $example"
"$build/camtool/camtool" show "$example"
