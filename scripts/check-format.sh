#!/usr/bin/env bash
# Fails when a C++ source differs from what clang-format makes of it (the root .clang-format).
set -euo pipefail
cd "$(dirname "$0")/.."
command -v clang-format >/dev/null || scripts/install-deps.sh
git ls-files '*.cpp' '*.h' | xargs clang-format --dry-run --Werror
echo "clang-format: every source is formatted"
