#!/usr/bin/env bash
# Installs what is missing, builds, and opens the editor through the reference host: on the
# library root the store remembers, or on the sample library created on the first run.
# Options are passed to the host (for example --root DIR).
set -euo pipefail
cd "$(dirname "$0")"
scripts/install-deps.sh
scripts/build.sh vordpm-host VorDPMEditor vordpm
if [ -n "${DISPLAY:-}" ] || [ -n "${WAYLAND_DISPLAY:-}" ]; then
  exec build/host/vordpm-host "$@"
fi
# No display: run under Xvfb and keep a picture of the main window.
shot="$PWD/build/editor-main-window.png"
xvfb-run -a -s "-screen 0 1280x900x24" build/host/vordpm-host --screenshot "$shot" "$@"
echo "No display here: the editor ran under Xvfb; its main window is in $shot"
