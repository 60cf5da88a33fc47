#!/usr/bin/env bash
# Installs the Debian packages the build, the tests and the editor need, when they are missing.
set -euo pipefail

packages=(build-essential cmake ninja-build pkg-config qt6-base-dev qt6-base-dev-tools
          libsqlite3-dev liblua5.4-dev libgtest-dev libgmock-dev libbenchmark-dev
          fonts-wqy-microhei xvfb xauth clang-format
          # family tables: writing and reading workbooks, an independent reader for the tests,
          # and sqlite3's .import as the import benchmark's baseline
          libxlsxwriter-dev libzip-dev python3-openpyxl sqlite3
          # translations: lupdate/lrelease, their CMake support, Qt's own catalogs
          qt6-l10n-tools qt6-tools-dev qt6-translations-l10n
          # Debian packages and their checks
          dpkg-dev file desktop-file-utils appstream lintian
          # team libraries on a database server: the client library, and a throwaway server
          # for the tests
          postgresql libpq-dev)

missing=()
for package in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q "ok installed" || missing+=("$package")
done
[ ${#missing[@]} -eq 0 ] && exit 0

echo "Installing: ${missing[*]}"
sudo_cmd=()
[ "$(id -u)" -ne 0 ] && sudo_cmd=(sudo)
"${sudo_cmd[@]}" apt-get update -qq
DEBIAN_FRONTEND=noninteractive "${sudo_cmd[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}"
