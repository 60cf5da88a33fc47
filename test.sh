#!/usr/bin/env bash
# Installs what is missing, builds, and runs every test headless.
set -euo pipefail
cd "$(dirname "$0")"
scripts/install-deps.sh
scripts/build.sh
QT_QPA_PLATFORM=offscreen ctest --test-dir build --output-on-failure --timeout 600 -j2
