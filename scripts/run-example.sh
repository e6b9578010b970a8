#!/usr/bin/env bash
# Sets up, builds and starts the drive configurator (the demo host of the
# editor library) on the bundled example project. Without a display, or in
# CI, it runs under Xvfb and writes screenshots of the host window and of
# table 0's editor instead.
set -euo pipefail
here="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
build="$here/build"
"$here/scripts/setup.sh" "$build" >/dev/null
app="$build/driveconfigurator/driveconfigurator"
project="$here/examples/example-project.mxdrive"

if [ -z "${DISPLAY:-}" ] || [ -n "${CI:-}" ]; then
    shots="$build/screenshots"
    echo "== no display: driveconfigurator under Xvfb, screenshots in $shots"
    xvfb-run -a -s "-screen 0 1400x900x24" "$app" --screenshots "$shots" "$project"
else
    echo "== driveconfigurator $project"
    exec "$app" "$project"
fi
