#!/usr/bin/env bash
# Builds everything with AddressSanitizer and UndefinedBehaviorSanitizer into build-sanitize/
# and runs every test there: a memory error or undefined behaviour anywhere fails the run.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh
flags="-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer"
cmake -S . -B build-sanitize -G Ninja -DCMAKE_BUILD_TYPE=Debug -DVORDPM_WARNINGS_AS_ERRORS=ON \
  -DCMAKE_CXX_FLAGS="$flags" -DCMAKE_C_FLAGS="$flags" \
  -DCMAKE_EXE_LINKER_FLAGS="-fsanitize=address,undefined" \
  -DCMAKE_SHARED_LINKER_FLAGS="-fsanitize=address,undefined" \
  -DCMAKE_MODULE_LINKER_FLAGS="-fsanitize=address,undefined" >/dev/null
ninja -C build-sanitize
# Leaks are not checked: Qt's and fontconfig's caches live until exit by design.
export ASAN_OPTIONS="detect_leaks=0:abort_on_error=1:strict_string_checks=1"
export UBSAN_OPTIONS="print_stacktrace=1:halt_on_error=1"
QT_QPA_PLATFORM=offscreen ctest --test-dir build-sanitize --output-on-failure --timeout 1200 -j2
