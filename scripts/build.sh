#!/usr/bin/env bash
# Configures and builds everything into build/ (warnings are errors).
set -euo pipefail
cd "$(dirname "$0")/.."
cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DVORDPM_WARNINGS_AS_ERRORS=ON >/dev/null
ninja -C build "$@"
